#include "lists/tick_list.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace lorvan {

TickList::TickList(Face face, QWidget* parent)
    : PlainList(face, parent)
{
    setSelectionMode(MultiSelection);
}

std::vector<qint64> TickList::chosenData() const
{
    QModelIndexList chosen = selectionModel()->selectedIndexes();
    std::sort(chosen.begin(), chosen.end());
    std::vector<qint64> keys;
    for (const QModelIndex& index : chosen)
        keys.push_back(index.data(Qt::UserRole).toLongLong());
    return keys;
}

void TickList::setCurrentMarked(bool isMarked)
{
    m_marksCurrent = isMarked;
    viewport()->update();
}

void TickList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && currentIndex().isValid())
        selectionModel()->select(currentIndex(), QItemSelectionModel::Toggle); // no search for a row with a blank
    else
        PlainList::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags TickList::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    if (!event)
        return QItemSelectionModel::NoUpdate; // typing the beginning of a row only moves there
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* const mouse = static_cast<const QMouseEvent*>(event);
        if (mouse->modifiers().testFlag(Qt::ShiftModifier))
            return QItemSelectionModel::SelectCurrent;
    }
    return PlainList::selectionCommand(index, event);
}

} // namespace lorvan
