#include "AppIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

// The drawing of oproc-gui.svg on its 64 x 64 grid.
QPixmap Paint(int side) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 64.0, side / 64.0);
    const QColor frame(0x2a, 0x4d, 0x7a), run(0xd9, 0x82, 0x2b), interval(0x1f, 0x7a, 0x4d);
    auto pen = [](const QColor& c) { return QPen(c, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin); };

    p.setPen(QPen(frame, 2.5));
    p.setBrush(QColor(0xf4, 0xf7, 0xfb));
    p.drawRoundedRect(QRectF(3, 3, 58, 58), 9, 9);

    p.setBrush(Qt::NoBrush);
    QPen axes(frame, 2.5, Qt::SolidLine, Qt::SquareCap);
    p.setPen(axes);
    p.drawPolyline(QPolygonF({QPointF(12, 12), QPointF(12, 51), QPointF(54, 51)}));

    p.setPen(pen(run));
    p.drawPolyline(QPolygonF({QPointF(13, 46), QPointF(18, 30), QPointF(22, 38), QPointF(26, 24), QPointF(30, 33),
                              QPointF(34, 27), QPointF(38, 31), QPointF(42, 26), QPointF(46, 30), QPointF(51, 28)}));

    p.setPen(pen(interval));
    p.drawLine(QPointF(40, 14), QPointF(40, 22));
    p.drawLine(QPointF(36, 14), QPointF(44, 14));
    p.drawLine(QPointF(36, 22), QPointF(44, 22));
    p.setPen(Qt::NoPen);
    p.setBrush(interval);
    p.drawEllipse(QPointF(40, 18), 2.2, 2.2);
    return pixmap;
}

}  // namespace

QIcon gui_AppIcon() {
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(Paint(side));
    return icon;
}
