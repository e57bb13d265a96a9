#include "export/table_xlsx.h"

#include <xlsxwriter.h>

#include <algorithm>

namespace lorvan {
namespace {

constexpr std::uint8_t a4Paper = 9;
constexpr double twipsInCharacter = 105; // seven pixels of fifteen twips
constexpr double leastWidth = 8;
constexpr double headingSize = 12;

const char* numberFormat(TableCell::Kind kind)
{
    switch (kind) {
    case TableCell::Kind::Whole:
        return "0";
    case TableCell::Kind::Amount:
        return "#,##0.00";
    case TableCell::Kind::Date:
        return "dd/mm/yyyy";
    case TableCell::Kind::WeekdayDate:
        return "[$-408]ddd dd/mm/yyyy"; // 408: the weekday in Greek
    case TableCell::Kind::Empty:
    case TableCell::Kind::Text:
        break;
    }
    return nullptr;
}

lxw_color_t spreadsheetColour(ReportColour colour)
{
    return (colour & 0xff) << 16 | (colour & 0xff00) | (colour >> 16 & 0xff);
}

} // namespace

XlsxSink::XlsxSink(const QString& path, const ReportDocument& document)
    : m_workbook(path)
{
    lxw_worksheet* const sheet = m_workbook.beginSheet();
    worksheet_set_paper(sheet, a4Paper);
    if (document.page().orientation == ReportOrientation::Landscape)
        worksheet_set_landscape(sheet);
    setColumns(document);
}

/// The columns are as wide as those of the report's first table.
void XlsxSink::setColumns(const ReportDocument& document)
{
    for (int index = 0; index < document.itemCount(); ++index) {
        const ReportItem item = document.item(index);
        if (item.columns().empty())
            continue;
        for (const ReportColumn& each : item.columns()) {
            m_widths.push_back(0);
            setWidth(m_widths.size() - 1, std::max(each.width / twipsInCharacter, leastWidth));
        }
        return;
    }
}

void XlsxSink::setWidth(std::size_t column, double width)
{
    m_widths[column] = width;
    m_workbook.setWidth(static_cast<int>(column), width);
}

/// In a column that is too narrow a number is shown as a row of hashes, and the text of a total is cut.
void XlsxSink::widenFor(int column, const TableCell& cell, const TableRowLook& look)
{
    const auto place = static_cast<std::size_t>(column);
    const bool isText = cell.kind == TableCell::Kind::Text;
    const bool mustBeSeen = isText ? look.isBold && look.kind == TableRowLook::Kind::Row : !cell.date.isValid();
    const double needed = static_cast<double>(cell.text.size() + 1);
    if (mustBeSeen && place < m_widths.size() && needed > m_widths[place])
        setWidth(place, needed);
}

void XlsxSink::addRow(const std::vector<TableCell>& cells, const TableRowLook& look)
{
    if (m_workbook.row() >= XlsxWorkbook::mostRows) {
        throw TableExportError(QStringLiteral("Ένα φύλλο XLSX χωρά έως 1.048.576 γραμμές. Αποθηκεύστε την εκτύπωση ως "
                                              "CSV ή διαλέξτε μικρότερη περίοδο."));
    }
    int column = 0;
    for (const TableCell& cell : cells) {
        if (cell.kind != TableCell::Kind::Empty) {
            widenFor(column, cell, look);
            addCell(column, cell, formatFor(cell.kind, look));
        }
        ++column;
    }
    if (look.kind == TableRowLook::Kind::Titles && !m_hasTitles) {
        m_hasTitles = true;
        m_workbook.keepInView();
    }
    m_workbook.endRow();
}

void XlsxSink::addCell(int column, const TableCell& cell, lxw_format* format)
{
    if (cell.date.isValid())
        m_workbook.addDate(column, cell.date, format);
    else if (cell.kind == TableCell::Kind::Text || !fitsSpreadsheet(cell.number))
        m_workbook.addText(column, cell.text, format);
    else
        m_workbook.addAmount(column, cell.number, format);
}

lxw_format* XlsxSink::formatFor(TableCell::Kind kind, const TableRowLook& look)
{
    lxw_format*& format = m_formats[{kind, look.kind, look.isBold, look.colour}];
    if (format)
        return format;
    format = m_workbook.newFormat(numberFormat(kind));
    if (kind == TableCell::Kind::Amount)
        format_set_align(format, LXW_ALIGN_RIGHT); // for amounts that are written as text
    if (look.isBold || look.kind == TableRowLook::Kind::Titles || look.kind == TableRowLook::Kind::Heading)
        format_set_bold(format);
    if (look.kind == TableRowLook::Kind::Heading)
        format_set_font_size(format, headingSize);
    if (look.kind == TableRowLook::Kind::Titles)
        format_set_bottom(format, LXW_BORDER_THIN);
    if (look.colour != 0)
        format_set_font_color(format, spreadsheetColour(look.colour));
    return format;
}

} // namespace lorvan
