#include "look/shapes.h"

#include <QPainter>

namespace lorvan {

void paintPanel(
    QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border, qreal width, qreal radius)
{
    const bool wasSmooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border, width));
    painter.setBrush(ground.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(ground));
    const qreal half = width / 2;
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
    painter.setRenderHint(QPainter::Antialiasing, wasSmooth);
}

} // namespace lorvan
