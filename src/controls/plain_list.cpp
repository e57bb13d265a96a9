#include "controls/plain_list.h"

#include "controls/row_delegate.h"
#include "controls/theme.h"

#include <QEvent>
#include <QStandardItemModel>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int heightOverFont = 5;
constexpr int margin = 2;
constexpr int leastRows = 3;
constexpr int usualRows = 6;

} // namespace

PlainList::PlainList(Face face, QWidget* parent)
    : RecordList(Moves::Click, parent)
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

void PlainList::changeEvent(QEvent* event)
{
    RecordList::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        doItemsLayout();
}

} // namespace lorvan
