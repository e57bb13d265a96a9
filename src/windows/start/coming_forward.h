#pragma once

#include <QByteArray>

class QWidget;

namespace lorvan {

/// The permission to come to the front that the desktop gave to this start; empty if it gave none.
[[nodiscard]] QByteArray activationToken();

/// Shows the window in front, or the modal window above it. Asks in the way that the desktop expects; whether the
/// window may come is for the desktop to decide. `window` may be null.
void bringForward(QWidget* window, const QByteArray& token);

} // namespace lorvan
