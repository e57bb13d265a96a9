#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace lorvan {

/// Top left corner at which a window's middle is the area's middle; outside the area when the window is the larger.
[[nodiscard]] QPoint centredIn(const QRect& area, QSize window);

/// Moves a window to the middle of its screen's work area.
void centreOnWorkArea(QWidget* window);

/// The largest size a window can have within the work area, its frame allowed for.
[[nodiscard]] QSize roomFor(const QWidget* window);

/// Gives a window its first size, no larger than its room.
void sizeWithin(QWidget* window, QSize wanted);

} // namespace lorvan
