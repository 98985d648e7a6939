#pragma once

#include "core/ports/printsurfacebase.h"

#include <QList>
#include <QStringList>

namespace tresvane
{
// A printer that writes down what is drawn on it, with text metrics simple enough to work
// positions out by hand: every letter is half an em wide (100 twips at 10 point) and a
// line 1.2 em high (240 twips at 10 point). The page is US letter less a quarter inch on
// each side.
class RecordingPrintSurface final : public PrintSurfaceBase
{
public:
    struct Op {
        enum Kind { Text, Line, Picture, NewPage, EndDoc } kind = Text;
        int document = 0; // counts EndDoc calls before this one
        int page = 0;     // counts pages within the whole run
        double x = 0, y = 0, x2 = 0, y2 = 0;
        QString text; // the text, or the picture's file
        QString fontName;
        double fontSize = 0;
        bool bold = false;
        bool underline = false;
        qint32 color = 0;
        int drawWidth = 0;
        Orientation orientation = Orientation::Portrait;
        bool colorMode = true;
    };

    double pageWidth() const override;
    double pageHeight() const override;
    double textWidth(const QString& text) const override;
    double textHeight(const QString& text) const override;
    void line(double x1, double y1, double x2, double y2, qint32 color) override;
    // A file that exists is taken as a picture.
    bool picture(const QString& file, const QRectF& box) override;
    void newPage() override;
    void endDoc() override;

    QList<Op> ops;

    QList<Op> texts() const;
    QList<Op> lines() const;
    QList<Op> pictures() const;
    QStringList textStrings() const;
    // The first text that equals s; a failed QVERIFY names it when none does.
    const Op* find(const QString& s) const;
    // Every text that equals s.
    QList<Op> findAll(const QString& s) const;
    // The texts of one document (counted from 0).
    QList<Op> document(int index) const;
    int documents() const { return m_document; }

protected:
    void drawText(double x, double y, const QString& text) override;

private:
    Op start(Op::Kind kind) const;
    int m_document = 0;
    int m_page = 0;
};

// Twips to inches, for comparing with positions a document states in inches.
inline double Inches(double twips)
{
    return twips / 1440.0;
}
} // namespace tresvane
