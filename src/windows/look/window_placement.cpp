#include "look/window_placement.h"

#include "look/opening_placement.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace lorvan {

namespace {

/// The frame that the window system puts around a window; its width is known only once the window is shown.
constexpr QSize frame{8, 36};

} // namespace

QPoint centredIn(const QRect& area, QSize window)
{
    return area.topLeft() + QPoint((area.width() - window.width()) / 2, (area.height() - window.height()) / 2);
}

void centreOnWorkArea(QWidget* window)
{
    OpeningPlacement& placement = OpeningPlacement::of(window);
    placement.setCentred();
    placement.again();
}

QPoint keptIn(const QRect& area, const QRect& window)
{
    const QPoint last(area.right() - window.width() + 1, area.bottom() - window.height() + 1);
    return {std::max(area.left(), std::min(window.left(), last.x())),
        std::max(area.top(), std::min(window.top(), last.y()))};
}

void keepOnWorkArea(QWidget* window)
{
    if (window->isVisible())
        OpeningPlacement::of(window).end();
    const QPoint wanted = keptIn(window->screen()->availableGeometry(), window->frameGeometry());
    if (wanted != window->frameGeometry().topLeft())
        window->move(wanted);
}

QSize roomFor(const QWidget* window)
{
    return window->screen()->availableGeometry().size() - frame;
}

void sizeWithin(QWidget* window, QSize wanted)
{
    OpeningPlacement::of(window);
    window->resize(wanted.boundedTo(roomFor(window)));
}

} // namespace lorvan
