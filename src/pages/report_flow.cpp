#include "report_flow.h"

#include <algorithm>
#include <cmath>

namespace lorvan {

namespace {

constexpr int rowsKeptWithTitles = 2; // the first is the empty row below the titles

/// A page while it is being filled.
class Page {
public:
    Page(float height, std::vector<FlowBlock>* blocks)
        : m_height(height)
        , m_blocks(blocks)
    {
    }

    [[nodiscard]] float height() const { return m_height; }
    [[nodiscard]] float room() const { return m_height - m_used; }
    [[nodiscard]] bool isEmpty() const { return m_isEmpty; }

    /// A page with only repeated titles and carried sums counts as empty: something of the document must follow them.
    void repeat(int item, const ItemSize& size, FlowBlock::Kind kind)
    {
        place({item, 0, size.lines, m_used, size, kind});
        m_isEmpty = true;
    }

    void place(const FlowBlock& block)
    {
        if (m_blocks)
            m_blocks->push_back(block);
        m_used += block.size.heightOf(block.lines);
        m_isEmpty = false;
    }

    [[nodiscard]] float used() const { return m_used; }

private:
    float m_height;
    float m_used = 0;
    bool m_isEmpty = true;
    std::vector<FlowBlock>* m_blocks;
};

/// How many lines go onto the page: all, none, or, for an item that must be split, as many as there is room for.
int linesThatGo(const Page& page, const ItemSize& size, int lines, float keptTogether, bool mayBeSplit)
{
    if (size.heightOf(lines) + keptTogether <= page.room())
        return lines;
    if (!page.isEmpty() && !mayBeSplit)
        return 0;
    const int fitting = static_cast<int>(std::floor((page.room() - size.padding) / size.lineHeight));
    return std::clamp(fitting, page.isEmpty() ? 1 : 0, lines);
}

} // namespace

std::optional<FlowPosition> ReportFlow::fillPage(FlowPosition at, std::vector<FlowBlock>* blocks) const
{
    const ReportDocument& document = m_layout.document();
    const int count = document.itemCount();
    Page page(static_cast<float>(m_layout.body().height()), blocks);
    if (at.item < count && document.item(at.item).titlesItem() >= 0) {
        const int titles = document.item(at.item).titlesItem();
        const ItemSize size = m_layout.size(titles);
        if (size.height() <= page.height() / 2)
            page.repeat(titles, size, FlowBlock::Kind::Item);
    }
    if (at.line == 0 && m_layout.carriesInto(at.item))
        page.repeat(at.item, m_layout.carrySize(at.item), FlowBlock::Kind::CarriedIn);
    while (at.item < count) {
        const ItemSize size = m_layout.size(at.item);
        const int left = size.lines - at.line;
        const ReportItem item = document.item(at.item);
        const bool mayBeSplit = item.isParagraph() && !item.isHeading();
        const float after = keptTogether(at.item) + carryHeight(at.item + 1);
        const int going = linesThatGo(page, size, left, after, mayBeSplit);
        if (going > 0)
            page.place({at.item, at.line, going, page.used(), size});
        if (going < left) {
            if (at.line + going == 0 && carryHeight(at.item) > 0 && carryHeight(at.item) <= page.room())
                page.place({at.item, 0, 1, page.used(), m_layout.carrySize(at.item), FlowBlock::Kind::CarriedOn});
            return FlowPosition{at.item, at.line + going};
        }
        at = {at.item + 1, 0};
    }
    return std::nullopt;
}

/// The height of the line of sums if a page is broken before the item.
float ReportFlow::carryHeight(int item) const
{
    return m_layout.carriesInto(item) ? m_layout.carrySize(item).height() : 0;
}

/// The height of what must follow a heading, or titles, on the same page.
float ReportFlow::keptTogether(int item) const
{
    const ReportDocument& document = m_layout.document();
    if (document.item(item).isHeading() && item + 1 < document.itemCount())
        return m_layout.size(item + 1).heightOf(1);
    if (!document.item(item).isTitles())
        return 0;
    float height = 0;
    const int end = std::min(document.itemCount(), item + 1 + rowsKeptWithTitles);
    for (int row = item + 1; row < end && document.item(row).titlesItem() == item; ++row)
        height += m_layout.size(row).height();
    return height;
}

} // namespace lorvan
