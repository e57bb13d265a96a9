#include "lists/plain_list.h"

#include "lists/row_delegate.h"
#include "look/theme.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStandardItemModel>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int heightOverFont = 5;
constexpr int margin = 2;
constexpr int leastRows = 3;
constexpr int usualRows = 6;
constexpr int charactersOfStep = 8;

} // namespace

PlainList::PlainList(Face face, QWidget* parent, Moves moves)
    : RecordList(moves, parent)
    , m_rows(new QStandardItemModel(this))
    , m_face(face)
{
    setItemDelegate(new RowDelegate(this));
    setModel(m_rows);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(0, margin, 0, margin);
    connect(&Theme::instance(), &Theme::changed, this, &PlainList::dress);
    dress();
}

void PlainList::dress()
{
    if (m_face == Face::FixedWidth)
        setFont(Theme::instance().fixedFont());
}

void PlainList::setRows(const std::vector<ListRow>& rows)
{
    m_rows->clear();
    for (const ListRow& row : rows) {
        auto* const item = new QStandardItem(row.text);
        item->setData(row.data, Qt::UserRole);
        m_rows->appendRow(item);
    }
}

bool PlainList::selectData(qint64 key)
{
    const auto found = m_rows->match(m_rows->index(0, 0), Qt::UserRole, key, 1, Qt::MatchExactly);
    selectRow(found.value(0));
    return !found.isEmpty();
}

void PlainList::setScrollsSideways()
{
    m_scrollsSideways = true;
    setUniformItemSizes(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollMode(ScrollPerPixel);
    doItemsLayout();
}

void PlainList::setRowHeight(int pixels)
{
    m_rowHeight = pixels;
    doItemsLayout();
}

int PlainList::rowHeight() const
{
    return std::max(m_rowHeight, fontMetrics().height() + heightOverFont);
}

QSize PlainList::sizeHint() const
{
    return {160, usualRows * rowHeight() + 2 * (margin + frameWidth())};
}

QSize PlainList::minimumSizeHint() const
{
    return {80, leastRows * rowHeight() + 2 * (margin + frameWidth())};
}

void PlainList::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int place = horizontalScrollBar()->value();
    RecordList::scrollTo(index, hint);
    horizontalScrollBar()->setValue(place);
}

void PlainList::keyPressEvent(QKeyEvent* event)
{
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    QScrollBar* const bar = horizontalScrollBar();
    if (!m_scrollsSideways || !isSideways || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        const QModelIndex before = currentIndex();
        RecordList::keyPressEvent(event);
        if (currentIndex() != before)
            bar->setValue(0);
        return;
    }
    const int step = charactersOfStep * fontMetrics().averageCharWidth();
    bar->setValue(bar->value() + (event->key() == Qt::Key_Left ? -step : step));
}

void PlainList::changeEvent(QEvent* event)
{
    RecordList::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        doItemsLayout();
}

} // namespace lorvan
