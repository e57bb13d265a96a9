#include "export/table_xlsx.h"

#include "export/table_export.h"
#include "export/workbook_proof.h"

#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <algorithm>

namespace lorvan {
namespace {

constexpr unsigned mostRows = LXW_ROW_MAX;
constexpr qsizetype longestText = 32767;
constexpr std::uint8_t a4Paper = 9;
constexpr double twipsInCharacter = 105; ///< Seven pixels of fifteen twips.
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
        return "[$-408]ddd dd/mm/yyyy"; // in Greek
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

void check(lxw_error outcome)
{
    if (outcome != LXW_NO_ERROR)
        throw TableExportError(QString::fromUtf8(lxw_strerror(outcome)));
}

} // namespace

XlsxSink::XlsxSink(const QString& path, const ReportDocument& document)
    : m_path(path)
{
    QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    m_workbook = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    m_sheet = m_workbook ? workbook_add_worksheet(m_workbook, nullptr) : nullptr;
    if (!m_sheet) {
        lxw_workbook_free(m_workbook);
        throw TableExportError(QString::fromUtf8(lxw_strerror(LXW_ERROR_CREATING_TMPFILE)));
    }
    worksheet_set_paper(m_sheet, a4Paper);
    if (document.page().orientation == ReportOrientation::Landscape)
        worksheet_set_landscape(m_sheet);
    setColumns(document);
}

XlsxSink::~XlsxSink()
{
    lxw_workbook_free(m_workbook);
}

/// As wide as in the report's first table.
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
    const auto place = static_cast<lxw_col_t>(column);
    check(worksheet_set_column(m_sheet, place, place, width, nullptr));
}

/// A number that is longer than its column would be shown as a row of hashes, a total's text cut.
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
    if (m_row >= mostRows) {
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
        worksheet_freeze_panes(m_sheet, m_row + 1, 0);
        worksheet_repeat_rows(m_sheet, m_row, m_row);
    }
    ++m_row;
}

void XlsxSink::addCell(int column, const TableCell& cell, lxw_format* format)
{
    const auto place = static_cast<lxw_col_t>(column);
    if (cell.date.isValid()) {
        lxw_datetime day{cell.date.year(), cell.date.month(), cell.date.day(), 0, 0, 0};
        check(worksheet_write_datetime(m_sheet, m_row, place, &day, format));
    } else if (cell.kind == TableCell::Kind::Text || !fitsSpreadsheet(cell.number)) {
        check(worksheet_write_string(m_sheet, m_row, place, cell.text.left(longestText).toUtf8().constData(), format));
    } else {
        const double number = static_cast<double>(cell.number.tenThousandths()) / 10'000;
        check(worksheet_write_number(m_sheet, m_row, place, number, format));
    }
}

lxw_format* XlsxSink::formatFor(TableCell::Kind kind, const TableRowLook& look)
{
    lxw_format*& format = m_formats[{kind, look.kind, look.isBold, look.colour}];
    if (format)
        return format;
    format = workbook_add_format(m_workbook);
    if (const char* const number = numberFormat(kind))
        format_set_num_format(format, number);
    if (kind == TableCell::Kind::Amount)
        format_set_align(format, LXW_ALIGN_RIGHT); // also where it stands as a text
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

void XlsxSink::finish()
{
    lxw_workbook* const workbook = m_workbook;
    m_workbook = nullptr;
    check(workbook_close(workbook));
    proveWorkbook(m_path, {m_row});
}

} // namespace lorvan
