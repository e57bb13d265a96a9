#include "preview/held_key.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace lorvan {
namespace {

bool isModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

} // namespace

HeldKey& HeldKey::instance()
{
    static HeldKey* const keys = new HeldKey; // belongs to the application
    return *keys;
}

HeldKey::HeldKey()
    : QObject(qApp)
{
    qApp->installEventFilter(this);
}

/// A key that is a shortcut is announced, but not delivered.
bool HeldKey::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (!isModifier(key.key())) {
            m_key = key.key();
            m_scanCode = key.nativeScanCode();
        }
    } else if (event->type() == QEvent::KeyRelease) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isSame = key.key() == m_key || (m_scanCode != 0 && key.nativeScanCode() == m_scanCode);
        if (m_key != 0 && isSame && !key.isAutoRepeat()) {
            m_key = 0;
            Q_EMIT released();
        }
    }
    return false;
}

} // namespace lorvan
