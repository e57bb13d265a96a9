#include "report_page.h"

#include "document/report_cells.h"

#include <QTextLayout>

#include <algorithm>

namespace lorvan {

namespace {

constexpr int quietBorder = 9;
constexpr float headerDistance = 135; // between page header and body, body and page footer

/// Where a line of length `width` starts.
float alignedLeft(ColumnAlignment alignment, float left, float boxWidth, float width)
{
    switch (alignment) {
    case ColumnAlignment::Centre:
        return left + (boxWidth - width) / 2;
    case ColumnAlignment::Right:
        return left + boxWidth - width;
    case ColumnAlignment::Left:
        break;
    }
    return left;
}

/// The distance of a character from the start of its line.
float offsetOf(const PlacedText& placed, qsizetype character)
{
    if (placed.isPlain)
        return placed.font->plainWidth(placed.text.first(character));
    QTextLayout layout(placed.text.toString(), placed.font->font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return static_cast<float>(line.cursorToX(static_cast<int>(character)));
}

/// The part of the characters `start` to `end` of its cell that is on this line; empty if none is.
QRectF areaOf(const PlacedText& placed, qsizetype start, qsizetype end)
{
    const qsizetype lineStart = placed.text.data() - placed.whole.data();
    const qsizetype from = std::max<qsizetype>(start - lineStart, 0);
    const qsizetype to = std::min(end - lineStart, placed.text.size());
    if (from >= to)
        return {};
    const float left = offsetOf(placed, from);
    const float right = offsetOf(placed, to);
    return QRectF(placed.left + left, placed.baseline - placed.font->ascent(), right - left, placed.font->lineHeight())
        .normalized();
}

} // namespace

ReportPage::ReportPage(const ReportLayout& layout, const std::vector<FlowBlock>& blocks, int number)
    : m_layout(layout)
    , m_clip(layout.body().left(), 0, layout.body().width(), layout.pageSize().height())
{
    const ReportDocument& document = layout.document();
    const float bodyTop = static_cast<float>(layout.body().top());
    placeThreeParts(m_header, document.header(), bodyTop - headerDistance);
    for (const FlowBlock& block : blocks) {
        const ReportItem item = document.item(block.item);
        if (block.kind != FlowBlock::Kind::Item)
            placeCarried(block, bodyTop + block.top);
        else if (item.isParagraph())
            placeParagraph(item, block, bodyTop + block.top);
        else if (item.isChart())
            placeChart(item, bodyTop + block.top);
        else if (item.isPicture())
            m_pictures.push_back({item.pictureFile(), QPointF(layout.body().left(), bodyTop + block.top),
                static_cast<double>(item.pictureHeight())});
        else
            placeRow(item, block, bodyTop + block.top);
    }
    QString footer = document.footer();
    footer.replace(QStringLiteral("%d"), QString::number(number));
    const float footerTop = static_cast<float>(layout.body().bottom()) + headerDistance;
    placeThreeParts(m_footer, footer, footerTop + layout.headerFont().lineHeight());
}

void ReportPage::placeParagraph(const ReportItem& item, const FlowBlock& block, float top)
{
    const GlyphFont& font = m_layout.font(item);
    const TextLines lines = m_layout.paragraphLines(item);
    float baseline = top + (block.size.lineHeight - font.lineHeight()) / 2 + font.ascent();
    for (int index = block.firstLine; index < block.firstLine + block.lines; ++index) {
        const TextLine& line = lines[index];
        m_texts.push_back({&font, item.textColour(), item.text().sliced(line.start, line.length), item.text(),
            line.isPlain, static_cast<float>(m_layout.body().left()), baseline});
        baseline += block.size.lineHeight;
    }
}

/// The words take the columns left of the first sum; what does not fit there is cut.
void ReportPage::placeCarried(const FlowBlock& block, float top)
{
    const CarriedRows& rows = m_layout.document().carried();
    const CarriedSums carried = rows.before(block.item).value_or(CarriedSums());
    const TableBoxes& boxes = m_layout.boxes(m_layout.document().item(rows.firstItem(block.item)));
    const GlyphFont& font = m_layout.carryFont(block.item);
    const float bodyLeft = static_cast<float>(m_layout.body().left());
    const float baseline = top + block.size.padding / 2 + font.ascent();
    const auto place = [&](const QString& text, const ColumnBox& box) {
        m_carried.push_back(text);
        const QStringView whole = m_carried.back();
        const CellLines cell = m_layout.cellLines(font, box, whole);
        if (cell.lines.isEmpty())
            return;
        const TextLine& line = cell.lines.front();
        m_carriedTexts.push_back({cell.font, 0, whole.sliced(line.start, line.length), whole, line.isPlain,
            alignedLeft(box.alignment, bodyLeft + box.left, box.width, line.width), baseline});
    };
    const bool isHead = block.kind == FlowBlock::Kind::CarriedIn;
    const QString words = isHead ? QStringLiteral("Από μεταφορά") : QStringLiteral("Σε μεταφορά");
    const ColumnBox& firstSum = boxes.columns[static_cast<std::size_t>(carried.columns.front())];
    const float wordsLeft = boxes.columns.front().left;
    place(carried.name.isEmpty() ? words : words + QStringLiteral("  ") + carried.name,
        {wordsLeft, firstSum.left - wordsLeft, ColumnAlignment::Left});
    for (std::size_t sum = 0; sum < carried.columns.size(); ++sum)
        place(amountOrBlankText(carried.sums[sum]), boxes.columns[static_cast<std::size_t>(carried.columns[sum])]);
    m_rules.push_back(
        {bodyLeft, bodyLeft + boxes.width, isHead ? top + block.size.height() : top, PlacedRule::Look::Quiet});
}

void ReportPage::placeChart(const ReportItem& item, float top)
{
    const QRectF& body = m_layout.body();
    m_charts.push_back({&item.chart(), QRectF(body.left(), top, body.width(), item.chartHeight())});
}

void ReportPage::placeRow(const ReportItem& item, const FlowBlock& block, float top)
{
    const TableBoxes& boxes = m_layout.boxes(item);
    const float bodyLeft = static_cast<float>(m_layout.body().left());
    const GlyphFont& font = m_layout.font(item);
    const float height = block.size.heightOf(block.lines);
    placeGround(item, top, top + height, boxes.width);
    m_rows.push_back({QRectF(bodyLeft, top, boxes.width, height), block.item});

    const int cells = std::min(item.cellCount(), static_cast<int>(boxes.columns.size()));
    for (int cell = 0; cell < cells; ++cell) {
        const ColumnBox& box = boxes.columns[static_cast<std::size_t>(cell)];
        const QStringView text = item.cell(cell);
        const CellLines inCell = m_layout.cellLines(font, box, text);
        const qsizetype end = std::min<qsizetype>(block.firstLine + block.lines, inCell.lines.size());
        float baseline = top + block.size.padding / 2 + font.ascent();
        for (qsizetype index = block.firstLine; index < end; ++index, baseline += font.lineHeight()) {
            const TextLine& line = inCell.lines[index];
            m_texts.push_back({inCell.font, item.textColour(), text.sliced(line.start, line.length), text, line.isPlain,
                alignedLeft(box.alignment, bodyLeft + box.left, box.width, line.width), baseline});
        }
    }
}

void ReportPage::placeGround(const ReportItem& item, float top, float bottom, float width)
{
    const float left = static_cast<float>(m_layout.body().left());
    if (item.shade() != noShade)
        m_shades.push_back({QRectF(left, top, width, bottom - top), item.shade()});
    if (item.border() == quietBorder)
        m_rules.push_back({left, left + width, bottom, PlacedRule::Look::Quiet});
    if (item.border() == 2 || item.border() == 3)
        m_rules.push_back({left, left + width, top, PlacedRule::Look::Strong});
    if (item.border() == 1 || item.border() == 3)
        m_rules.push_back({left, left + width, bottom, PlacedRule::Look::Strong});
}

/// The parts share the line; a single one gets all of it. If more lines are needed, they grow upwards.
void ReportPage::placeThreeParts(std::array<QString, 3>& parts, const QString& text, float bottom)
{
    const ThreeParts split = splitIntoThree(text);
    parts = {split.left, split.centre, split.right};
    const auto used = std::count_if(parts.begin(), parts.end(), [](const QString& part) { return !part.isEmpty(); });
    if (used == 0)
        return;
    const float width = static_cast<float>(m_layout.body().width()) / static_cast<float>(used);
    placePart(parts[0], ColumnAlignment::Left, width, bottom);
    placePart(parts[1], ColumnAlignment::Centre, width, bottom);
    placePart(parts[2], ColumnAlignment::Right, width, bottom);
}

void ReportPage::placePart(QStringView part, ColumnAlignment alignment, float width, float bottom)
{
    if (part.isEmpty())
        return;
    const GlyphFont& font = m_layout.headerFont();
    const TextLines lines = breakIntoLines(font, part, width);
    const float height = static_cast<float>(lines.size()) * font.lineHeight();
    float baseline = std::max(bottom - height, 0.F) + font.ascent();
    for (const TextLine& line : lines) {
        const float left = alignedLeft(alignment, static_cast<float>(m_layout.body().left()),
            static_cast<float>(m_layout.body().width()), line.width);
        m_texts.push_back({&font, 0, part.sliced(line.start, line.length), part, line.isPlain, left, baseline});
        baseline += font.lineHeight();
    }
}

RowSubject ReportPage::subjectAt(QPointF place) const
{
    const auto row = std::find_if(
        m_rows.begin(), m_rows.end(), [&place](const PlacedRow& each) { return each.area.contains(place); });
    if (row == m_rows.end())
        return {};
    const ReportItem item = m_layout.document().item(row->item);
    const std::vector<ColumnBox>& columns = m_layout.boxes(item).columns;
    const auto isRight = [&](const ColumnBox& box) { return row->area.left() + box.left > place.x(); };
    const auto after = std::find_if(columns.begin(), columns.end(), isRight);
    return item.subject(std::max(static_cast<int>(after - columns.begin()) - 1, 0));
}

QString ReportPage::text() const
{
    std::vector<const PlacedText*> lines;
    for (const PlacedText& placed : m_texts)
        lines.push_back(&placed);
    const auto isHigher = [](const PlacedText* left, const PlacedText* right) {
        return left->baseline < right->baseline;
    };
    std::stable_sort(lines.begin(), lines.end(), isHigher);
    QString text;
    const PlacedText* before = nullptr;
    for (const PlacedText* const placed : lines) {
        if (before)
            text += isHigher(before, placed) ? u'\n' : u'\t';
        text += placed->text;
        before = placed;
    }
    return text;
}

std::vector<QRectF> ReportPage::find(const SearchText& wanted) const
{
    std::vector<QRectF> areas;
    for (const PlacedText& placed : m_texts) {
        for (qsizetype at = wanted.indexIn(placed.whole); at >= 0; at = wanted.indexIn(placed.whole, at + 1)) {
            const QRectF area = areaOf(placed, at, at + wanted.length());
            if (!area.isEmpty())
                areas.push_back(area);
        }
    }
    return areas;
}

} // namespace lorvan
