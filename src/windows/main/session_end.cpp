#include "main/session_end.h"

#include <QEvent>
#include <QGuiApplication>

namespace lorvan {

SessionEnd::SessionEnd(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool SessionEnd::isUnderWay() const
{
    return m_quitting || qGuiApp->isSavingSession();
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::Quit)
        m_quitting = true; // the toolkit closes every window next
    return false;
}

} // namespace lorvan
