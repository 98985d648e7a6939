#include "recordingprintsurface.h"

#include <QFileInfo>

namespace tresvane
{
double RecordingPrintSurface::pageWidth() const
{
    return orientation() == Orientation::Portrait ? 8.0 * 1440 : 10.5 * 1440;
}

double RecordingPrintSurface::pageHeight() const
{
    return orientation() == Orientation::Portrait ? 10.5 * 1440 : 8.0 * 1440;
}

double RecordingPrintSurface::textWidth(const QString& text) const
{
    return text.size() * fontSize() * 10;
}

double RecordingPrintSurface::textHeight(const QString&) const
{
    return fontSize() * 24;
}

RecordingPrintSurface::Op RecordingPrintSurface::start(Op::Kind kind) const
{
    Op op;
    op.kind = kind;
    op.document = m_document;
    op.page = m_page;
    op.fontName = fontName();
    op.fontSize = fontSize();
    op.bold = fontBold();
    op.underline = fontUnderline();
    op.color = foreColor();
    op.drawWidth = drawWidth();
    op.orientation = orientation();
    op.colorMode = colorMode();
    return op;
}

void RecordingPrintSurface::drawText(double x, double y, const QString& text)
{
    Op op = start(Op::Text);
    op.x = x;
    op.y = y;
    op.text = text;
    ops << op;
}

void RecordingPrintSurface::line(double x1, double y1, double x2, double y2, qint32 color)
{
    Op op = start(Op::Line);
    op.x = x1;
    op.y = y1;
    op.x2 = x2;
    op.y2 = y2;
    op.color = color;
    ops << op;
}

bool RecordingPrintSurface::picture(const QString& file, const QRectF& box)
{
    if (!QFileInfo(file).isFile()) return false;
    Op op = start(Op::Picture);
    op.x = box.left();
    op.y = box.top();
    op.x2 = box.right();
    op.y2 = box.bottom();
    op.text = file;
    ops << op;
    return true;
}

void RecordingPrintSurface::newPage()
{
    ops << start(Op::NewPage);
    ++m_page;
}

void RecordingPrintSurface::endDoc()
{
    ops << start(Op::EndDoc);
    ++m_document;
    ++m_page;
}

QList<RecordingPrintSurface::Op> RecordingPrintSurface::texts() const
{
    QList<Op> out;
    for (const Op& op : ops)
        if (op.kind == Op::Text) out << op;
    return out;
}

QList<RecordingPrintSurface::Op> RecordingPrintSurface::lines() const
{
    QList<Op> out;
    for (const Op& op : ops)
        if (op.kind == Op::Line) out << op;
    return out;
}

QList<RecordingPrintSurface::Op> RecordingPrintSurface::pictures() const
{
    QList<Op> out;
    for (const Op& op : ops)
        if (op.kind == Op::Picture) out << op;
    return out;
}

QStringList RecordingPrintSurface::textStrings() const
{
    QStringList out;
    for (const Op& op : ops)
        if (op.kind == Op::Text) out << op.text;
    return out;
}

const RecordingPrintSurface::Op* RecordingPrintSurface::find(const QString& s) const
{
    for (const Op& op : ops)
        if (op.kind == Op::Text && op.text == s) return &op;
    return nullptr;
}

QList<RecordingPrintSurface::Op> RecordingPrintSurface::findAll(const QString& s) const
{
    QList<Op> out;
    for (const Op& op : ops)
        if (op.kind == Op::Text && op.text == s) out << op;
    return out;
}

QList<RecordingPrintSurface::Op> RecordingPrintSurface::document(int index) const
{
    QList<Op> out;
    for (const Op& op : ops)
        if (op.kind == Op::Text && op.document == index) out << op;
    return out;
}
} // namespace tresvane
