#include "controls/window_placement.h"

#include <QScreen>
#include <QWidget>

namespace lorvan {

QPoint centredIn(const QRect& area, QSize window)
{
    return area.topLeft() + QPoint((area.width() - window.width()) / 2, (area.height() - window.height()) / 2);
}

void centreOnWorkArea(QWidget* window)
{
    window->move(centredIn(window->screen()->availableGeometry(), window->frameGeometry().size()));
}

void sizeWithin(QWidget* window, QSize wanted)
{
    window->resize(wanted.boundedTo(window->screen()->availableGeometry().size()));
}

} // namespace lorvan
