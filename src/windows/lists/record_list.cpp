#include "lists/record_list.h"

#include "lists/empty_text.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace lorvan {

RecordList::RecordList(Moves moves, QWidget* parent)
    : QListView(parent)
    , m_moves(moves)
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

void RecordList::setEmptyText(const QString& text, int usualRows)
{
    m_emptyText = text;
    m_usualRows = usualRows;
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model(), change, this, &RecordList::describe, Qt::UniqueConnection);
    connect(model(), &QAbstractItemModel::modelReset, this, &RecordList::describe, Qt::UniqueConnection);
    describe();
    viewport()->update();
}

void RecordList::describe()
{
    const QString text = model()->rowCount() == m_usualRows ? m_emptyText : QString();
    if (accessibleDescription() != text)
        setAccessibleDescription(text);
}

void RecordList::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    const int rows = model() ? model()->rowCount() : 0;
    if (m_emptyText.isEmpty() || rows != m_usualRows)
        return;
    const QRect last = visualRect(model()->index(rows - 1, 0));
    paintEmptyText(*this, last.isValid() ? last.bottom() : 0, m_emptyText);
}

void RecordList::keyPressEvent(QKeyEvent* event)
{
    if (actOnRow(*event)) {
        event->accept();
        return;
    }
    const QModelIndex before = selectedRow();
    const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (isArrow && selectionMode() == SingleSelection && !before.isValid() && currentIndex().isValid())
        setCurrentIndex(currentIndex()); // so that the first row is not skipped
    else
        QListView::keyPressEvent(event);
    if (m_moves == Moves::Click && selectionMode() == SingleSelection && selectedRow() != before)
        Q_EMIT clicked(selectedRow());
}

bool RecordList::actOnRow(const QKeyEvent& event)
{
    const QModelIndex row = currentIndex();
    if (!row.isValid() || (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_F2:
        Q_EMIT opened(row);
        return true;
    case Qt::Key_Delete:
        Q_EMIT removalAsked(row);
        return true;
    case Qt::Key_Space:
        if (selectionMode() != SingleSelection)
            return false;
        setCurrentIndex(row);
        Q_EMIT clicked(row);
        return true;
    default:
        return false;
    }
}

QModelIndex RecordList::selectedRow() const
{
    return selectionModel()->isSelected(currentIndex()) ? currentIndex() : QModelIndex();
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

/// Scrolled pixels do not meet exactly if a pixel is not a whole number of device pixels, as at 125 %.
void RecordList::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    viewport()->update();
}

} // namespace lorvan
