#include "export/movement_workbook.h"

#include "document/report_cells.h"
#include "export/table_cells.h"
#include "export/table_export.h"
#include "export/workbook_proof.h"
#include "platform/stop_check.h"

#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace lorvan {
namespace {

constexpr qsizetype longestText = 32767;

struct SheetColumn {
    const char* title;
    double width; ///< In characters.
};

enum Place { Key, Day, Code, Description, Income, Expense, Memorandum, Cheque };

constexpr double longestAmount = 24;
constexpr Currency wideAmount =
    Currency::fromTenThousandths(1'000'000'000'000); ///< From here on wider than its column.

constexpr std::array sheetColumns{
    SheetColumn{"Α/Α", 10},
    SheetColumn{"Ημερομηνία", 12},
    SheetColumn{"Κωδικός", 10},
    SheetColumn{"Περιγραφή", 40},
    SheetColumn{"Έσοδα", 16},
    SheetColumn{"Έξοδα", 16},
    SheetColumn{"Λ τάξεως", 16},
    SheetColumn{"Επιταγή", 10},
};

void check(lxw_error outcome)
{
    if (outcome != LXW_NO_ERROR)
        throw TableExportError(QString::fromUtf8(lxw_strerror(outcome)));
}

lxw_format* newFormat(lxw_workbook* workbook, const char* number)
{
    lxw_format* const format = workbook_add_format(workbook);
    if (number)
        format_set_num_format(format, number);
    return format;
}

/// The library takes seconds to pack a large workbook and asks nobody meanwhile: once a check says no, it is left to
/// end by itself or with the process.
lxw_error closeUnlessStopped(lxw_workbook* workbook)
{
    constexpr std::chrono::milliseconds betweenQuestions{20};
    std::packaged_task<lxw_error()> closing([workbook] { return workbook_close(workbook); });
    std::future<lxw_error> closed = closing.get_future();
    std::thread(std::move(closing)).detach();
    while (closed.wait_for(betweenQuestions) != std::future_status::ready) {
        if (!StopCheck::goesOn())
            throw TableExportError(QStringLiteral("Η ενέργεια διακόπηκε."));
    }
    return closed.get();
}

} // namespace

MovementWorkbook::MovementWorkbook(const QString& path, unsigned rowsOfSheet)
    : m_path(path)
    , m_rowsOfSheet(rowsOfSheet)
{
    QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    m_workbook = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    if (!m_workbook)
        throw TableExportError(QString::fromUtf8(lxw_strerror(LXW_ERROR_CREATING_XLSX_FILE)));
    m_formats = {newFormat(m_workbook, nullptr), newFormat(m_workbook, "0"), newFormat(m_workbook, "dd/mm/yyyy"),
        nullptr, newFormat(m_workbook, "#,##0.00##")};
    format_set_align(formatOf(Look::Amount), LXW_ALIGN_RIGHT); // also where it stands as a text
    format_set_bold(formatOf(Look::Titles));
    format_set_bottom(formatOf(Look::Titles), LXW_BORDER_THIN);
    beginSheet();
}

MovementWorkbook::~MovementWorkbook()
{
    lxw_workbook_free(m_workbook);
}

void MovementWorkbook::beginSheet()
{
    m_sheet = workbook_add_worksheet(m_workbook, nullptr);
    if (!m_sheet) {
        lxw_workbook_free(m_workbook);
        m_workbook = nullptr;
        throw TableExportError(QString::fromUtf8(lxw_strerror(LXW_ERROR_CREATING_TMPFILE)));
    }
    m_row = 0;
    lxw_col_t column = 0;
    for (const SheetColumn& each : sheetColumns) {
        worksheet_set_column(m_sheet, column, column, each.width, nullptr);
        addText(column, QString::fromUtf8(each.title), Look::Titles);
        ++column;
    }
    worksheet_freeze_panes(m_sheet, 1, 0);
    worksheet_repeat_rows(m_sheet, 0, 0);
    m_row = 1;
}

void MovementWorkbook::addNumber(int column, double number, Look look)
{
    check(worksheet_write_number(m_sheet, m_row, static_cast<lxw_col_t>(column), number, formatOf(look)));
}

void MovementWorkbook::addAmount(int column, Currency amount)
{
    if (amount >= wideAmount || amount <= -wideAmount)
        widen(column);
    if (!fitsSpreadsheet(amount))
        addText(column, plainAmountText(amount), Look::Amount);
    else if (!amount.isZero())
        addNumber(column, static_cast<double>(amount.tenThousandths()) / Currency::unitsPerEuro, Look::Amount);
}

/// A number that is longer than its column would be shown as a row of hashes.
void MovementWorkbook::widen(int column)
{
    const auto place = static_cast<lxw_col_t>(column);
    check(worksheet_set_column(m_sheet, place, place, longestAmount, nullptr));
}

void MovementWorkbook::addDate(int column, QDate day)
{
    if (!day.isValid())
        return;
    lxw_datetime date{day.year(), day.month(), day.day(), 0, 0, 0};
    const auto place = static_cast<lxw_col_t>(column);
    // A spreadsheet knows no dates before 1900.
    if (worksheet_write_datetime(m_sheet, m_row, place, &date, formatOf(Look::Date)) != LXW_NO_ERROR)
        addText(column, day.toString(Qt::ISODate));
}

void MovementWorkbook::addText(int column, const QString& text, Look look)
{
    check(worksheet_write_string(
        m_sheet, m_row, static_cast<lxw_col_t>(column), text.left(longestText).toUtf8().constData(), formatOf(look)));
}

void MovementWorkbook::add(const Movement& movement)
{
    if (m_row == m_rowsOfSheet) {
        m_rows.push_back(m_row);
        beginSheet();
    }
    addNumber(Key, static_cast<double>(movement.key), Look::Whole);
    addDate(Day, movement.day);
    addNumber(Code, movement.code, Look::Whole);
    addText(Description, movement.description);
    addAmount(Income, movement.income);
    addAmount(Expense, movement.expense);
    addAmount(Memorandum, movement.memorandum);
    if (movement.cheque)
        addText(Cheque, QStringLiteral("ναι"));
    ++m_row;
}

void MovementWorkbook::finish()
{
    check(closeUnlessStopped(std::exchange(m_workbook, nullptr)));
    m_rows.push_back(m_row);
    proveWorkbook(m_path, m_rows);
}

} // namespace lorvan
