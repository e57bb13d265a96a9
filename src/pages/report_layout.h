#pragma once

#include "document/report_document.h"
#include "report_lines.h"

#include <QRectF>

#include <memory>
#include <utility>
#include <vector>

namespace lorvan {

/// The space that an item of a document takes on a page.
struct ItemSize {
    int lines = 1;
    float lineHeight = 0; ///< twips
    float padding = 0; ///< twips, above and below the lines together

    [[nodiscard]] float height() const { return heightOf(lines); }
    [[nodiscard]] float heightOf(int someLines) const { return static_cast<float>(someLines) * lineHeight + padding; }
};

/// The position of a column. All in twips from the left edge of the text area.
struct ColumnBox {
    float left = 0;
    float width = 0; ///< of the text in it
    ColumnAlignment alignment = ColumnAlignment::Left;
};

/// The columns of a table; if together they are wider than the text area, all are narrowed in proportion.
struct TableBoxes {
    std::vector<ColumnBox> columns;
    float width = 0;
};

/// A cell's text divided into lines, and the font in which they are set.
struct CellLines {
    const GlyphFont* font = nullptr;
    TextLines lines;
};

/// Whether pages that break a table end and begin with the sums up to there.
enum class CarryLines { No, Yes };

/// The measurements of a document, in twips: its page, the number of lines of each text, the positions of columns. The
/// document must outlive it unchanged.
class ReportLayout {
public:
    explicit ReportLayout(const ReportDocument& document, CarryLines carries = CarryLines::No);

    [[nodiscard]] const ReportDocument& document() const { return m_document; }
    [[nodiscard]] QSizeF pageSize() const;
    /// The area inside the margins, for paragraphs and tables; at least an inch each way.
    [[nodiscard]] const QRectF& body() const { return m_body; }

    [[nodiscard]] ItemSize size(int item) const;

    /// Whether a page that begins with this item carries sums.
    [[nodiscard]] bool carriesInto(int item) const;
    /// The line of those sums, which is set like the first row they come from, in bold.
    [[nodiscard]] ItemSize carrySize(int item) const;
    [[nodiscard]] const GlyphFont& carryFont(int item) const;
    [[nodiscard]] const GlyphFont& font(const ReportItem& item) const;
    [[nodiscard]] const GlyphFont& headerFont() const { return m_fonts.get(m_document.headerFont()); }
    [[nodiscard]] const TableBoxes& boxes(const ReportItem& item) const;

    [[nodiscard]] TextLines paragraphLines(const ReportItem& paragraph) const;
    /// A number that is too long for its column is set in a smaller font instead of being broken, and so is any other
    /// word in a right-aligned column. The font is never smaller than two fifths of its size; what still does not fit
    /// is broken.
    [[nodiscard]] CellLines cellLines(const GlyphFont& font, const ColumnBox& box, QStringView text) const;

private:
    [[nodiscard]] int rowLines(const ReportItem& row) const;
    [[nodiscard]] const GlyphFont* smallerFont(const GlyphFont& font, const ColumnBox& box, QStringView text) const;

    const ReportDocument& m_document;
    const CarryLines m_carries;
    QRectF m_body;
    FontShelf m_fonts;
    mutable std::vector<std::pair<const std::vector<ReportColumn>*, std::unique_ptr<TableBoxes>>> m_boxes;
};

} // namespace lorvan
