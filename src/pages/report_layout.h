#pragma once

#include "document/report_document.h"
#include "report_lines.h"

#include <QRectF>

#include <memory>
#include <utility>
#include <vector>

namespace lorvan {

/// What an item of a document takes up on a page.
struct ItemSize {
    int lines = 1;
    float lineHeight = 0; ///< twips
    float padding = 0; ///< twips, above and below the lines together

    [[nodiscard]] float height() const { return heightOf(lines); }
    [[nodiscard]] float heightOf(int someLines) const { return static_cast<float>(someLines) * lineHeight + padding; }
};

/// Where a column stands. All in twips from the left edge of the text.
struct ColumnBox {
    float left = 0;
    float width = 0; ///< of the text in it
    ColumnAlignment alignment = ColumnAlignment::Left;
};

/// The columns of a table; drawn narrower, all in proportion, where together they are wider than the text.
struct TableBoxes {
    std::vector<ColumnBox> columns;
    float width = 0;
};

/// A cell's text in lines, with the font that they are set in.
struct CellLines {
    const GlyphFont* font = nullptr;
    TextLines lines;
};

/// The measures of a document, in twips: its page, how many lines each text takes, where columns stand. The document
/// must outlive it unchanged.
class ReportLayout {
public:
    explicit ReportLayout(const ReportDocument& document);

    [[nodiscard]] const ReportDocument& document() const { return m_document; }
    [[nodiscard]] QSizeF pageSize() const;
    /// What the margins leave for paragraphs and tables; at least an inch each way.
    [[nodiscard]] const QRectF& body() const { return m_body; }

    [[nodiscard]] ItemSize size(int item) const;
    [[nodiscard]] const GlyphFont& font(const ReportItem& item) const;
    [[nodiscard]] const GlyphFont& headerFont() const { return m_fonts.get(m_document.headerFont()); }
    [[nodiscard]] const TableBoxes& boxes(const ReportItem& item) const;

    [[nodiscard]] TextLines paragraphLines(const ReportItem& paragraph) const;
    /// A number that is too long for its column is set smaller instead of being broken, and so is any other word in a
    /// right-aligned column. Not smaller than two fifths of the font: what needs that is broken.
    [[nodiscard]] CellLines cellLines(const GlyphFont& font, const ColumnBox& box, QStringView text) const;

private:
    [[nodiscard]] int rowLines(const ReportItem& row) const;
    [[nodiscard]] const GlyphFont* smallerFont(const GlyphFont& font, const ColumnBox& box, QStringView text) const;

    const ReportDocument& m_document;
    QRectF m_body;
    FontShelf m_fonts;
    mutable std::vector<std::pair<const std::vector<ReportColumn>*, std::unique_ptr<TableBoxes>>> m_boxes;
};

} // namespace lorvan
