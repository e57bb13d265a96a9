#include "controls/away_watch.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace lorvan {

AwayWatch::AwayWatch(QWidget* window, Clock clock)
    : QObject(window)
    , m_clock(std::move(clock))
{
    window->installEventFilter(this);
}

bool AwayWatch::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate)
        m_away.leave(m_clock.now());
    else if (event->type() == QEvent::WindowActivate && m_away.comeBack(m_clock.now()))
        QMetaObject::invokeMethod(this, &AwayWatch::returned, Qt::QueuedConnection);
    return false;
}

} // namespace lorvan
