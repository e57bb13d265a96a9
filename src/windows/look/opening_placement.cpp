#include "look/opening_placement.h"

#include "look/window_placement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <chrono>

namespace lorvan {
namespace {

using namespace std::chrono_literals;

constexpr auto openingTime = 1s;
constexpr auto lookInterval = 40ms;
constexpr Qt::WindowStates placedByOthers = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;

/// The window as the window system sees it, once it exists: if the window manager reports the frame late, the widget
/// may still calculate without it.
QWindow* shownWindow(const QWidget& widget)
{
    QWindow* const window = widget.windowHandle();
    return window && window->isVisible() ? window : nullptr;
}

QRect frameOf(const QWidget& widget)
{
    const QWindow* const window = shownWindow(widget);
    return window ? window->frameGeometry() : widget.frameGeometry();
}

void putFrameAt(QWidget& widget, QPoint place)
{
    if (QWindow* const window = shownWindow(widget))
        window->setFramePosition(place);
    else
        widget.move(place);
}

} // namespace

OpeningPlacement& OpeningPlacement::of(QWidget* window)
{
    auto* placement = window->findChild<OpeningPlacement*>(QString(), Qt::FindDirectChildrenOnly);
    return placement ? *placement : *new OpeningPlacement(window);
}

OpeningPlacement::OpeningPlacement(QWidget* window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
    m_watch.setInterval(lookInterval);
    connect(&m_watch, &QTimer::timeout, this, &OpeningPlacement::watch);
}

bool OpeningPlacement::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous() && !m_isUsers)
        begin();
    const bool isLater = !m_watch.isActive() && m_window->isVisible();
    if (event->type() == QEvent::Move && isLater && m_place && frameOf(*m_window).topLeft() != *m_place)
        m_isUsers = true;
    return QObject::eventFilter(watched, event);
}

void OpeningPlacement::begin()
{
    m_opening.setRemainingTime(openingTime);
    m_watch.start();
    if (m_isCentred)
        place(); // already here, so that the user does not see it move
}

void OpeningPlacement::watch()
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        place();
    if (m_opening.hasExpired())
        m_watch.stop();
}

void OpeningPlacement::again()
{
    if (!m_isUsers)
        place();
}

void OpeningPlacement::end()
{
    m_watch.stop();
    m_isUsers = true;
}

void OpeningPlacement::place()
{
    if (m_window->windowState() & placedByOthers)
        return;
    const QRect area = m_window->screen()->availableGeometry();
    const QSize tooMuch = (frameOf(*m_window).size() - area.size()).expandedTo({0, 0});
    if (!tooMuch.isNull())
        m_window->resize(m_window->size() - tooMuch);
    QRect frame = frameOf(*m_window);
    const QPoint before = frame.topLeft();
    if (m_isCentred)
        frame.moveTopLeft(centredIn(area, frame.size()));
    m_place = keptIn(area, frame);
    if (before != *m_place)
        putFrameAt(*m_window, *m_place);
}

} // namespace lorvan
