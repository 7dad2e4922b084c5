#include "AppIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace dorrit {

QPixmap AppMark(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);

    QRadialGradient globe(QPointF(26, 24), 34);
    globe.setColorAt(0.0, QColor(0x5d, 0xa9, 0xe9));
    globe.setColorAt(1.0, QColor(0x1b, 0x4f, 0x8a));
    p.setPen(Qt::NoPen);
    p.setBrush(globe);
    p.drawEllipse(QPointF(32, 32), 22, 22);

    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 255, 255, 110), 1.4));
    p.drawEllipse(QPointF(32, 32), 10, 22);
    p.drawLine(QPointF(10, 32), QPointF(54, 32));

    p.translate(32, 32);
    p.rotate(-28);
    p.setPen(QPen(QColor(0xf2, 0xa9, 0x00), 2.4));
    p.drawEllipse(QPointF(0, 0), 30, 11);
    p.setPen(QPen(QColor(0x33, 0x33, 0x33), 1.0));
    p.setBrush(QColor(0xf2, 0xa9, 0x00));
    p.drawRoundedRect(QRectF(22, -4, 9, 8), 1.5, 1.5);
    return pixmap;
}

QIcon AppIcon() {
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(AppMark(size));
    return icon;
}

} // namespace dorrit
