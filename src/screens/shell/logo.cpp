#include "screens/shell/logo.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tresvane
{
QPixmap ProgramMark(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF tile(1, 1, size - 2, size - 2);
    QLinearGradient fill(tile.topLeft(), tile.bottomRight());
    fill.setColorAt(0, QColor(0x1f, 0x5f, 0x9f));
    fill.setColorAt(1, QColor(0x0e, 0x3a, 0x66));
    QPainterPath path;
    path.addRoundedRect(tile, size * 0.18, size * 0.18);
    p.fillPath(path, fill);
    p.setPen(QPen(QColor(255, 255, 255, 90), std::max(1.0, size / 48.0)));
    p.drawPath(path);
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(int(size * 0.42));
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(tile, Qt::AlignCenter, QStringLiteral("TD"));
    return pixmap;
}
} // namespace tresvane
