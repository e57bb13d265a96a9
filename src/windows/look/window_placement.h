#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace lorvan {

/// Top left corner at which a window's middle is the area's middle; outside the area when the window is the larger.
[[nodiscard]] QPoint centredIn(const QRect& area, QSize window);

/// Puts a window into the middle of its screen's work area, now and when it opens, until the user moves it.
void centreOnWorkArea(QWidget* window);

/// Top left corner nearest to where a window stands at which all of it is inside the area; of a window larger than the
/// area, its own top left corner is.
[[nodiscard]] QPoint keptIn(const QRect& area, const QRect& window);

/// Moves a window that has grown no further than its screen's work area asks for.
void keepOnWorkArea(QWidget* window);

/// The largest size a window can have within the work area, its frame allowed for.
[[nodiscard]] QSize roomFor(const QWidget* window);

/// Gives a window its first size, no larger than its room, and has it open inside the work area.
void sizeWithin(QWidget* window, QSize wanted);

} // namespace lorvan
