#pragma once

#include "core/ports/printsurface.h"

namespace tresvane
{
// The pen of a PrintSurface kept in one place: position, font, colour, line width and
// page setup, and the way printing a text moves the pen. A surface built on it draws text
// where it is told and measures it; the rest is common.
class PrintSurfaceBase : public PrintSurface
{
public:
    void setOrientation(Orientation orientation) override { m_orientation = orientation; }
    Orientation orientation() const override { return m_orientation; }
    void setColorMode(bool color) override { m_color = color; }
    bool colorMode() const override { return m_color; }

    void setCurrentX(double x) override { m_x = x; }
    double currentX() const override { return m_x; }
    void setCurrentY(double y) override { m_y = y; }
    double currentY() const override { return m_y; }

    void setFontName(const QString& name) override
    {
        m_fontName = name;
        fontChanged();
    }
    QString fontName() const override { return m_fontName; }
    void setFontSize(double points) override
    {
        m_fontSize = points;
        fontChanged();
    }
    double fontSize() const override { return m_fontSize; }
    void setFontBold(bool bold) override
    {
        m_bold = bold;
        fontChanged();
    }
    bool fontBold() const override { return m_bold; }
    void setFontUnderline(bool underline) override
    {
        m_underline = underline;
        fontChanged();
    }
    bool fontUnderline() const override { return m_underline; }
    void setForeColor(qint32 rgb) override { m_foreColor = rgb; }
    qint32 foreColor() const override { return m_foreColor; }
    void setDrawWidth(int width) override { m_drawWidth = width; }
    int drawWidth() const override { return m_drawWidth; }

    void print(const QString& text, bool lineEnd = true) override
    {
        if (!text.isEmpty()) drawText(m_x, m_y, text);
        if (lineEnd) {
            m_x = 0;
            m_y += textHeight(text);
        } else {
            m_x += textWidth(text);
        }
    }

protected:
    // Draws the text with the top of its cell at (x, y), in the pen's font and colour.
    virtual void drawText(double x, double y, const QString& text) = 0;
    // The font name, size, bold or underline changed.
    virtual void fontChanged() {}

private:
    Orientation m_orientation = Orientation::Portrait;
    bool m_color = true;
    double m_x = 0;
    double m_y = 0;
    QString m_fontName = QStringLiteral("Arial");
    double m_fontSize = 10;
    bool m_bold = false;
    bool m_underline = false;
    qint32 m_foreColor = 0;
    int m_drawWidth = 1;
};
} // namespace tresvane
