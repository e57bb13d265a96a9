#pragma once

#include "report_layout.h"

#include <optional>
#include <vector>

namespace lorvan {

/// A place in a document where a page can begin.
struct FlowPosition {
    int item = 0;
    int line = 0; ///< A line of that item; not 0 if the item continues from the previous page.

    friend bool operator==(const FlowPosition&, const FlowPosition&) = default;
};

/// Some or all lines of an item, placed on a page; or a line with the sums of the rows before an item, at the head or
/// the foot of a page.
struct FlowBlock {
    enum class Kind { Item, CarriedIn, CarriedOn };

    int item = 0;
    int firstLine = 0;
    int lines = 0;
    float top = 0; ///< twips below the top of the body
    ItemSize size;
    Kind kind = Kind::Item;
};

/// The rules for dividing a document into pages.
///
/// A row is never split, unless it is taller than a page; a paragraph is split between lines. A page that begins with a
/// row repeats the titles of the row's table (unless they fill half the page); titles are never left at the bottom of a
/// page without the rows that follow. Each page takes at least one line. If the layout carries sums, a page that is
/// broken within rows that add up ends with a line of sums and the next one begins with it, below the titles.
class ReportFlow {
public:
    explicit ReportFlow(const ReportLayout& layout)
        : m_layout(layout)
    {
    }

    /// Fills the page that begins at `start`: writes its blocks, if `blocks` is given, and returns where the next page
    /// begins; no value after the last one.
    std::optional<FlowPosition> fillPage(FlowPosition start, std::vector<FlowBlock>* blocks) const;

private:
    [[nodiscard]] float keptTogether(int item) const;
    [[nodiscard]] float carryHeight(int item) const;

    const ReportLayout& m_layout;
};

} // namespace lorvan
