#pragma once

#include <QSize>

class QWidget;

namespace lorvan {

/// Before a window is shown, gives it the size that the user left it with, stored under its object name, or `first` if
/// there is none yet. Never more than there is room for on the screen. A window that was maximised is maximised again.
void restoreSize(QWidget* window, QSize first);

/// The same, and remembers the size each time the window is hidden, if the user has changed it since it was shown: what
/// a small screen leaves of the size is not for the next one.
void keepSize(QWidget* window, QSize first);

/// Stores the size for the next time, in the user's settings; if these cannot be written, it is lost.
void rememberSize(const QWidget* window);

} // namespace lorvan
