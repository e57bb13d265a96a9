#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace lorvan {

inline constexpr qreal cornerRadius = 4;
inline constexpr qreal focusWidth = 2;

/// A rounded ground with a border of `width` lying wholly inside the rectangle.
void paintPanel(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border, qreal width,
    qreal radius = cornerRadius);

} // namespace lorvan
