#include "report_layout.h"

#include <algorithm>
#include <cmath>

namespace lorvan {

namespace {

constexpr float cellPadding = 60; // left and right of a cell's text
constexpr float rowPadding = 55; // above and below a row's lines, and each line of a paragraph, together
constexpr double leastBody = 1440;
// The smallest share of its size at which a long number is set; the longest amount then fits all columns.
constexpr float leastShare = 0.4F;

/// The start and end of what two margins leave of a page's side. If they leave less than an inch, they are reduced.
std::pair<double, double> between(double length, int before, int after)
{
    const double start = std::clamp<double>(before, 0, length - leastBody);
    const double end = std::clamp<double>(length - after, start + leastBody, length);
    return {start, end};
}

bool isNumber(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return (character >= u'0' && character <= u'9') || character == u'.' || character == u',' || character == u'-';
    });
}

QRectF bodyOf(const ReportPageSettings& page)
{
    const auto [left, right] = between(page.widthInTwips(), page.left, page.right);
    const auto [top, bottom] = between(page.heightInTwips(), page.top, page.bottom);
    return {left, top, right - left, bottom - top};
}

TableBoxes placeColumns(const std::vector<ReportColumn>& columns, float textWidth)
{
    float wanted = 0;
    for (const ReportColumn& column : columns)
        wanted += static_cast<float>(column.width);
    const float scale = wanted > textWidth ? textWidth / wanted : 1;

    TableBoxes boxes;
    for (const ReportColumn& column : columns) {
        const float width = static_cast<float>(column.width) * scale;
        const float padding = std::min(cellPadding, width / 4);
        boxes.columns.push_back({boxes.width + padding, width - 2 * padding, column.alignment});
        boxes.width += width;
    }
    return boxes;
}

} // namespace

ReportLayout::ReportLayout(const ReportDocument& document, CarryLines carries)
    : m_document(document)
    , m_carries(carries)
    , m_body(bodyOf(document.page()))
{
}

QSizeF ReportLayout::pageSize() const
{
    const ReportPageSettings& page = m_document.page();
    return {static_cast<double>(page.widthInTwips()), static_cast<double>(page.heightInTwips())};
}

ItemSize ReportLayout::size(int index) const
{
    const ReportItem item = m_document.item(index);
    if (item.isChart())
        return {1, static_cast<float>(item.chartHeight()), 0};
    if (item.isPicture())
        return {1, static_cast<float>(item.pictureHeight()), 0};
    const float lineHeight = font(item).lineHeight();
    if (item.isParagraph())
        return {static_cast<int>(paragraphLines(item).size()), lineHeight + rowPadding, 0};
    return {rowLines(item), lineHeight, rowPadding};
}

bool ReportLayout::carriesInto(int item) const
{
    return m_carries == CarryLines::Yes && m_document.carried().isCarriedInto(item);
}

ItemSize ReportLayout::carrySize(int item) const
{
    return {1, carryFont(item).lineHeight(), rowPadding};
}

const GlyphFont& ReportLayout::carryFont(int item) const
{
    ReportFont font = m_document.item(m_document.carried().firstItem(item)).font();
    font.bold = true;
    return m_fonts.get(font);
}

const GlyphFont& ReportLayout::font(const ReportItem& item) const
{
    return m_fonts.get(item.font());
}

const TableBoxes& ReportLayout::boxes(const ReportItem& item) const
{
    const std::vector<ReportColumn>* columns = &item.columns();
    auto known =
        std::find_if(m_boxes.begin(), m_boxes.end(), [columns](const auto& entry) { return entry.first == columns; });
    if (known == m_boxes.end()) {
        auto boxes = std::make_unique<TableBoxes>(placeColumns(*columns, static_cast<float>(m_body.width())));
        known = m_boxes.insert(known, {columns, std::move(boxes)});
    }
    return *known->second;
}

TextLines ReportLayout::paragraphLines(const ReportItem& paragraph) const
{
    return breakIntoLines(font(paragraph), paragraph.text(), static_cast<float>(m_body.width()));
}

int ReportLayout::rowLines(const ReportItem& row) const
{
    const GlyphFont& rowFont = font(row);
    const std::vector<ColumnBox>& columns = boxes(row).columns;
    const int cells = std::min(row.cellCount(), static_cast<int>(columns.size()));
    int lines = 1;
    for (int cell = 0; cell < cells; ++cell) {
        const QStringView text = row.cell(cell);
        const ColumnBox& box = columns[static_cast<std::size_t>(cell)];
        if (!rowFont.fitsPlainly(text, box.width))
            lines = std::max(lines, static_cast<int>(cellLines(rowFont, box, text).lines.size()));
    }
    return lines;
}

CellLines ReportLayout::cellLines(const GlyphFont& font, const ColumnBox& box, QStringView text) const
{
    if (text.isEmpty() || box.width <= 0)
        return {&font, {}};
    if (const GlyphFont* smaller = smallerFont(font, box, text))
        return {smaller, {{0, text.size(), smaller->plainWidth(text), true}}};
    return {&font, breakIntoLines(font, text, box.width)};
}

/// In steps of half a point, so that only a few fonts are made.
const GlyphFont* ReportLayout::smallerFont(const GlyphFont& font, const ColumnBox& box, QStringView text) const
{
    const bool mayShrink = box.alignment == ColumnAlignment::Right || isNumber(text);
    if (!mayShrink || font.fitsPlainly(text, box.width))
        return nullptr;
    const bool isOneWord = std::all_of(text.begin(), text.end(),
        [&font](QChar character) { return font.glyph(character.unicode()).kind == ReportGlyph::Kind::Plain; });
    const float share = box.width / font.plainWidth(text);
    if (!isOneWord || share < leastShare)
        return nullptr;
    ReportFont wanted{
        font.font().family(), std::floor(font.font().pixelSize() / 20.0 * share * 2) / 2, font.font().bold()};
    return &m_fonts.get(wanted);
}

} // namespace lorvan
