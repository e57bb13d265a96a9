#include "export/movement_workbook.h"

#include "document/report_cells.h"
#include "export/table_cells.h"

#include <xlsxwriter.h>

namespace lorvan {
namespace {

struct SheetColumn {
    const char* title;
    double width; ///< In characters.
};

enum Place { Key, Day, Code, Description, Income, Expense, Memorandum, Cheque };

constexpr double longestAmount = 24;
/// The smallest amount that is wider than its column.
constexpr Currency wideAmount = Currency::fromTenThousandths(1'000'000'000'000);

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

} // namespace

MovementWorkbook::MovementWorkbook(const QString& path, unsigned rowsOfSheet)
    : m_workbook(path)
    , m_titles(m_workbook.newFormat(nullptr))
    , m_whole(m_workbook.newFormat("0"))
    , m_date(m_workbook.newFormat("dd/mm/yyyy"))
    , m_amount(m_workbook.newFormat("#,##0.00##"))
    , m_rowsOfSheet(rowsOfSheet)
{
    format_set_align(m_amount, LXW_ALIGN_RIGHT); // for amounts that are written as text
    format_set_bold(m_titles);
    format_set_bottom(m_titles, LXW_BORDER_THIN);
    beginSheet();
}

void MovementWorkbook::beginSheet()
{
    m_workbook.beginSheet();
    int column = 0;
    for (const SheetColumn& each : sheetColumns) {
        m_workbook.setWidth(column, each.width);
        m_workbook.addText(column, QString::fromUtf8(each.title), m_titles);
        ++column;
    }
    m_workbook.keepInView();
    m_workbook.endRow();
}

/// A number that is wider than its column is shown as a row of hashes.
void MovementWorkbook::addAmount(int column, Currency amount)
{
    if (amount >= wideAmount || amount <= -wideAmount)
        m_workbook.setWidth(column, longestAmount);
    if (!fitsSpreadsheet(amount))
        m_workbook.addText(column, plainAmountText(amount), m_amount);
    else if (!amount.isZero())
        m_workbook.addAmount(column, amount, m_amount);
}

void MovementWorkbook::add(const Movement& movement)
{
    if (m_workbook.row() == m_rowsOfSheet)
        beginSheet();
    m_workbook.addNumber(Key, static_cast<double>(movement.key), m_whole);
    if (movement.day.isValid())
        m_workbook.addDate(Day, movement.day, m_date);
    m_workbook.addNumber(Code, movement.code, m_whole);
    m_workbook.addText(Description, movement.description, nullptr);
    addAmount(Income, movement.income);
    addAmount(Expense, movement.expense);
    addAmount(Memorandum, movement.memorandum);
    if (movement.cheque)
        m_workbook.addText(Cheque, QStringLiteral("ναι"), nullptr);
    m_workbook.endRow();
}

} // namespace lorvan
