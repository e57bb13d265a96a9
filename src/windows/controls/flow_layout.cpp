#include "controls/flow_layout.h"

#include <algorithm>

namespace lorvan {

FlowLayout::FlowLayout(int across, int down)
    : m_across(across)
    , m_down(down)
{
    setContentsMargins({});
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    const auto place = m_items.begin() + index;
    QLayoutItem* const item = place->release();
    m_items.erase(place);
    return item;
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : m_items)
        size = size.expandedTo(item->isEmpty() ? QSize() : item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    place(area, true);
}

int FlowLayout::place(const QRect& area, bool moves) const
{
    QPoint at = area.topLeft();
    int rowHeight = 0;
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (at.x() > area.left() && at.x() + size.width() > area.right() + 1) {
            at = {area.left(), at.y() + rowHeight + m_down};
            rowHeight = 0;
        }
        if (moves)
            item->setGeometry({at, size.boundedTo({area.width(), size.height()})});
        at.rx() += size.width() + m_across;
        rowHeight = std::max(rowHeight, size.height());
    }
    return at.y() + rowHeight - area.top();
}

} // namespace lorvan
