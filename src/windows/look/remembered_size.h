#pragma once

#include <QSize>

class QWidget;

namespace lorvan {

/// Gives a window, before it is shown, the size that the user left it with, under its object name; `first` where there
/// is none yet. Never more than its room on the screen. One that was maximised is so again.
void restoreSize(QWidget* window, QSize first);

/// Keeps the size for the next time, in the user's settings; where these cannot be written it is forgotten.
void rememberSize(const QWidget* window);

} // namespace lorvan
