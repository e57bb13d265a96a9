#pragma once

#include <QGuiApplication>

namespace lorvan {

/// Shows the busy pointer while it lives. The pointer is also the sign that an action runs, so that clicks which arrive
/// meanwhile are ignored.
class BusyPointer {
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

    [[nodiscard]] static bool isShown() { return QGuiApplication::overrideCursor() != nullptr; }
};

} // namespace lorvan
