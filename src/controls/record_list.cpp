#include "controls/record_list.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace lorvan {

RecordList::RecordList(QWidget* parent)
    : QListView(parent)
{
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerItem);
}

void RecordList::selectRow(const QModelIndex& index)
{
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
    else
        clearSelection();
}

void RecordList::keyPressEvent(QKeyEvent* event)
{
    const QModelIndex row = currentIndex();
    if (row.isValid() && event->modifiers() == Qt::NoModifier) {
        event->accept();
        if (event->key() == Qt::Key_F2)
            Q_EMIT opened(row);
        if (event->key() == Qt::Key_Delete)
            return removalAsked(row);
        if (event->key() == Qt::Key_Space && selectionMode() == SingleSelection) {
            setCurrentIndex(row);
            return clicked(row);
        }
        const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
        if (isArrow && selectionMode() == SingleSelection && !selectionModel()->hasSelection())
            return setCurrentIndex(row); // the first row is not skipped
    }
    QListView::keyPressEvent(event);
}

void RecordList::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_afterDoubleClick = true;
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex row = indexAt(event->position().toPoint());
    if (row.isValid() && event->button() == Qt::LeftButton)
        Q_EMIT opened(row);
}

void RecordList::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_afterDoubleClick) {
        QListView::mouseReleaseEvent(event);
        return;
    }
    m_afterDoubleClick = false;
    const QSignalBlocker noSecondClick(this);
    QListView::mouseReleaseEvent(event);
}

} // namespace lorvan
