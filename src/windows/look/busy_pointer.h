#pragma once

#include <QCursor>
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

/// Shows the ordinary pointer while it lives, for a box or window that asks something in the middle of an action. The
/// action still counts as running.
class OrdinaryPointer {
public:
    OrdinaryPointer()
    {
        if (m_busy)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~OrdinaryPointer()
    {
        if (m_busy)
            QGuiApplication::restoreOverrideCursor();
    }
    OrdinaryPointer(const OrdinaryPointer&) = delete;
    OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;

private:
    const bool m_busy = BusyPointer::isShown();
};

} // namespace lorvan
