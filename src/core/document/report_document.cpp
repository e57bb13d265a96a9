#include "document/report_document.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace lorvan {

namespace {

constexpr std::int64_t kindsOfSubjects = 4;

void change(ReportFont& font, const FontChange& change)
{
    font.name = change.name.value_or(font.name);
    font.size = change.size.value_or(font.size);
    font.bold = change.bold.value_or(font.bold);
}

void change(int& margin, const std::optional<ReportLength>& length)
{
    if (length)
        margin = length->twips().value_or(margin);
}

} // namespace

void ReportDocument::StandardPageSetup()
{
    m_page = {};
    SetFont({.name = QStringLiteral("Arial greek"), .size = 10});
    SetHeaderFont({.name = QStringLiteral("arial greek")});
}

void ReportDocument::StartDoc()
{
    m_text.clear();
    m_textEnds.clear();
    m_items.clear();
    m_styles.clear();
    m_columns.clear();
    m_charts.clear();
    m_pictures.clear();
    m_carried.clear();
    m_subjectCells.clear();
    m_subjects.clear();
    m_format.clear();
    m_next.columns = -1;
    m_next.titles = -1;
    m_hasTable = false;
    m_isComplete = false;
}

void ReportDocument::EndDoc()
{
    m_text.shrink_to_fit();
    m_textEnds.shrink_to_fit();
    m_items.shrink_to_fit();
    m_subjectCells.shrink_to_fit();
    m_subjects.shrink_to_fit();
    m_isComplete = true;
}

void ReportDocument::SetHeaderFont(const FontChange& change)
{
    lorvan::change(m_headerFont, change);
}

void ReportDocument::SetMargins(const MarginChange& change)
{
    lorvan::change(m_page.left, change.left);
    lorvan::change(m_page.top, change.top);
    lorvan::change(m_page.right, change.right);
    lorvan::change(m_page.bottom, change.bottom);
}

void ReportDocument::SetFont(const FontChange& change)
{
    lorvan::change(m_next.font, change);
}

void ReportDocument::SetTextColor(ReportColour colour)
{
    m_next.textColour = colour;
}

void ReportDocument::SetTableBorder(int style)
{
    m_next.border = style;
}

void ReportDocument::Paragraph(QStringView text)
{
    addCell(text);
    finishItem(Kind::Paragraph, noShade);
}

void ReportDocument::Heading(QStringView text)
{
    m_next.isHeading = true;
    Paragraph(text);
    m_next.isHeading = false;
}

void ReportDocument::AddTable(
    const QString& format, const CellTexts& header, const CellTexts& body, ReportColour headerShade)
{
    m_hasTable = true;
    m_next.titles = -1;
    if (!header.isEmpty()) {
        useFormat(format);
        std::for_each(header.begin(), header.end(), [this](QStringView title) { addCell(title); });
        finishItem(Kind::Titles, headerShade);
        m_next.titles = itemCount() - 1;
    }
    if (!body.isEmpty())
        addRow(format, body, noShade);
}

void ReportDocument::AddTableRow(const QString& format, const CellTexts& header, const CellTexts& body,
    ReportColour headerShade, ReportColour bodyShade)
{
    if (!m_hasTable)
        AddTable(format, header, QStringView(), headerShade);
    addRow(format, body, bodyShade);
}

void ReportDocument::BeginCarry(const std::vector<int>& columns, const QString& name)
{
    m_carried.begin(itemCount(), columns, name);
}

void ReportDocument::RowStandsFor(const RowSubject& subject, int firstCell)
{
    const std::uint32_t rowStart = m_items.size() > 1 ? m_items[m_items.size() - 2].cellEnd : 0;
    m_subjectCells.push_back(rowStart + static_cast<std::uint32_t>(firstCell));
    m_subjects.push_back(subject.number * kindsOfSubjects + static_cast<std::int64_t>(subject.kind));
}

void ReportDocument::AddChart(const Chart& chart, int height)
{
    m_charts.push_back({chart, height});
    finishItem(Kind::Chart, noShade);
}

void ReportDocument::AddPicture(const QString& file, int height)
{
    m_pictures.push_back({file, height});
    finishItem(Kind::Picture, noShade);
}

void ReportDocument::addRow(const QString& format, const CellTexts& body, ReportColour shade)
{
    useFormat(format);
    for (const QStringView text : body)
        addCell(text);
    finishItem(Kind::Row, shade);
}

/// Parses a format only if it differs from that of the previous row.
void ReportDocument::useFormat(const QString& format)
{
    if (m_next.columns >= 0 && format == m_format)
        return;
    m_format = format;
    std::vector<ReportColumn> columns = parseTableFormat(format);
    const auto known = std::find(m_columns.begin(), m_columns.end(), columns);
    m_next.columns = static_cast<int>(std::distance(m_columns.begin(), known));
    if (known == m_columns.end())
        m_columns.push_back(std::move(columns));
}

void ReportDocument::addCell(QStringView text)
{
    m_text.append(text.utf16(), static_cast<std::size_t>(text.size()));
    m_textEnds.push_back(static_cast<std::uint32_t>(m_text.size()));
}

void ReportDocument::finishItem(Kind kind, ReportColour shade)
{
    m_items.push_back({static_cast<std::uint32_t>(m_textEnds.size()), styleFor(kind), shade});
}

/// A report switches between a few styles: the one wanted is usually among the last.
std::uint32_t ReportDocument::styleFor(Kind kind)
{
    Style wanted = m_next;
    wanted.kind = kind;
    if (kind != Kind::Row)
        wanted.titles = -1;
    if (kind != Kind::Row && kind != Kind::Titles) {
        wanted.columns = -1;
        wanted.border = 0;
    }
    if (kind == Kind::Chart)
        wanted.chart = static_cast<int>(m_charts.size()) - 1;
    if (kind == Kind::Picture)
        wanted.picture = static_cast<int>(m_pictures.size()) - 1;
    constexpr std::ptrdiff_t lookBack = 16;
    const auto last = m_styles.rbegin();
    const auto end = std::next(last, std::min(lookBack, std::ssize(m_styles)));
    const auto known = std::find(last, end, wanted);
    if (known != end)
        return static_cast<std::uint32_t>(std::distance(known, m_styles.rend()) - 1);
    m_styles.push_back(std::move(wanted));
    return static_cast<std::uint32_t>(m_styles.size() - 1);
}

std::vector<ReportItem> ReportDocument::itemsOf(Kind kind) const
{
    std::vector<ReportItem> items;
    for (int index = 0; index < itemCount(); ++index) {
        if (item(index).style().kind == kind)
            items.push_back(item(index));
    }
    return items;
}

std::vector<ReportItem> ReportDocument::paragraphs() const
{
    return itemsOf(Kind::Paragraph);
}

std::vector<ReportItem> ReportDocument::rows() const
{
    return itemsOf(Kind::Row);
}

QString ReportDocument::cell(int row, int column) const
{
    const std::vector<ReportItem> all = rows();
    if (row < 0 || row >= std::ssize(all))
        return {};
    return all[static_cast<std::size_t>(row)].cell(column).toString();
}

bool operator==(const ReportDocument& left, const ReportDocument& right)
{
    return left.m_page == right.m_page && left.m_header == right.m_header && left.m_headerFont == right.m_headerFont
        && left.m_footer == right.m_footer && left.m_text == right.m_text && left.m_textEnds == right.m_textEnds
        && left.m_items == right.m_items && left.m_styles == right.m_styles && left.m_columns == right.m_columns
        && left.m_charts == right.m_charts && left.m_pictures == right.m_pictures;
}

QStringView ReportItem::cell(int column) const
{
    if (column < 0 || column >= cellCount())
        return {};
    const std::size_t cell = firstCell() + static_cast<std::size_t>(column);
    const std::size_t start = cell ? m_document->m_textEnds[cell - 1] : 0;
    return {m_document->m_text.data() + start, m_document->m_text.data() + m_document->m_textEnds[cell]};
}

RowSubject ReportItem::subject(int column) const
{
    const std::vector<std::uint32_t>& cells = m_document->m_subjectCells;
    const auto after = std::upper_bound(cells.begin(), cells.end(), firstCell() + static_cast<std::uint32_t>(column));
    if (after == cells.begin() || *std::prev(after) < firstCell())
        return {};
    const std::int64_t packed = m_document->m_subjects[static_cast<std::size_t>(after - cells.begin()) - 1];
    const std::int64_t kind = (packed % kindsOfSubjects + kindsOfSubjects) % kindsOfSubjects;
    return {static_cast<RowSubject::Kind>(kind), (packed - kind) / kindsOfSubjects};
}

QStringList ReportItem::cells() const
{
    QStringList texts;
    for (int column = 0; column < cellCount(); ++column)
        texts.append(cell(column).toString());
    return texts;
}

const std::vector<ReportColumn>& ReportItem::columns() const
{
    static const std::vector<ReportColumn> none;
    return style().columns < 0 ? none : m_document->m_columns[static_cast<std::size_t>(style().columns)];
}

QStringList ReportItem::header() const
{
    return titlesItem() < 0 ? QStringList() : m_document->item(titlesItem()).cells();
}

} // namespace lorvan
