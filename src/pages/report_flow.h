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

/// Some or all lines of an item, placed on a page.
struct FlowBlock {
    int item = 0;
    int firstLine = 0;
    int lines = 0;
    float top = 0; ///< twips below the top of the body
    ItemSize size;
};

/// The rules for dividing a document into pages.
///
/// A row is never split, unless it is taller than a page; a paragraph is split between lines. A page that begins with a
/// row repeats the titles of the row's table (unless they fill half the page); titles are never left at the bottom of a
/// page without the rows that follow. Each page takes at least one line.
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

    const ReportLayout& m_layout;
};

} // namespace lorvan
