#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace lorvan {

/// Shows the busy pointer during its lifetime. The pointer also means that an action is running, so that clicks in the
/// meantime are ignored.
class BusyPointer {
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

    [[nodiscard]] static bool isShown() { return QGuiApplication::overrideCursor() != nullptr; }
};

/// Shows the ordinary pointer during its lifetime, for a box or window that asks something in the middle of an action.
/// The action still counts as running.
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
