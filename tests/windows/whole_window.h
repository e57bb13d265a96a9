#pragma once

#include "controls/entry_field.h"
#include "controls/path_label.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScrollArea>

namespace lorvan::test {

/// Does every layout that waits, from the widget that the last event has changed up to its window.
inline void layOutWhole()
{
    QApplication::processEvents();
    for (int level = 0; level < 8; ++level)
        QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

/// Whether the control is in the part of a page that is scrolled to, or in none.
inline bool isScrolledTo(const QWidget& control)
{
    for (const QWidget* outer = control.parentWidget(); outer; outer = outer->parentWidget())
        if (qobject_cast<const QScrollArea*>(outer))
            return true;
    return false;
}

/// Visible labels, buttons and fields that are too small for their text, or not wholly inside the window; what a page
/// scrolls to counts as inside.
[[nodiscard]] inline QString cutOffIn(const QWidget& window)
{
    QStringList found;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const auto* const field = qobject_cast<const EntryField*>(widget);
        const bool speaks = label || field || qobject_cast<const QAbstractButton*>(widget);
        const QString text = widget->property("text").toString();
        if (!speaks || !widget->isVisible() || text.trimmed().isEmpty() || qobject_cast<const PathLabel*>(widget))
            continue;
        QSize least = field ? QSize(0, field->sizeHint().height()) : widget->sizeHint();
        if (label && label->wordWrap())
            least = {0, label->heightForWidth(label->width())};
        const bool isFixed = widget->minimumWidth() == widget->maximumWidth();
        const QRect inWindow(widget->mapTo(&window, QPoint()), widget->size());
        if ((widget->width() < least.width() && (label || !isFixed)) || widget->height() < least.height()
            || (field && isFixed && field->hidesText())
            || (!isScrolledTo(*widget) && !window.rect().contains(inWindow)))
            found += widget->objectName() + u' ' + text
                + QString(": %1 of %2 px, to %3").arg(widget->width()).arg(least.width()).arg(inWindow.right());
    }
    return found.join(u'\n');
}

} // namespace lorvan::test
