#pragma once

#include "report_layout.h"

#include <optional>
#include <vector>

namespace lorvan {

/// A place in a document at which a page can begin.
struct FlowPosition {
    int item = 0;
    int line = 0; ///< Of that item; not 0 where it goes on from the page before.

    friend bool operator==(const FlowPosition&, const FlowPosition&) = default;
};

/// Some or all lines of an item on a page.
struct FlowBlock {
    int item = 0;
    int firstLine = 0;
    int lines = 0;
    float top = 0; ///< twips below the top of the body
    ItemSize size;
};

/// The rules by which a document breaks into pages.
///
/// A row is never split, unless it is taller than a page; a paragraph is split between lines. A page that begins with a
/// row repeats the titles of the row's table (unless they fill half the page); titles do not stand at the foot of a
/// page without the rows that follow. Each page takes at least one line.
class ReportFlow {
public:
    explicit ReportFlow(const ReportLayout& layout)
        : m_layout(layout)
    {
    }

    /// The page that begins there: writes its blocks, if wanted, and gives the beginning of the next; none after the
    /// last.
    std::optional<FlowPosition> fillPage(FlowPosition start, std::vector<FlowBlock>* blocks) const;

private:
    [[nodiscard]] float keptTogether(int item) const;

    const ReportLayout& m_layout;
};

} // namespace lorvan
