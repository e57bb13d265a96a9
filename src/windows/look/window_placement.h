#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace lorvan {

/// The top left corner that centres a window in the area; outside the area if the window is larger.
[[nodiscard]] QPoint centredIn(const QRect& area, QSize window);

/// Puts a window into the middle of its screen's work area, now and when it opens, until the user moves it.
void centreOnWorkArea(QWidget* window);

/// The top left corner nearest to the window's present one at which the whole window is inside the area; if the window
/// is larger than the area, the area's top left corner.
[[nodiscard]] QPoint keptIn(const QRect& area, const QRect& window);

/// Moves a window that has grown, but only as far as its screen's work area requires.
void keepOnWorkArea(QWidget* window);

/// The largest size that a window can have within the work area, including its frame.
[[nodiscard]] QSize roomFor(const QWidget* window);

/// Gives a window its first size, no larger than there is room for, and makes it open inside the work area.
void sizeWithin(QWidget* window, QSize wanted);

} // namespace lorvan
