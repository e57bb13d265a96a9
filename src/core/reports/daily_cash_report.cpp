#include "reports/daily_cash_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "movements/cash_day.h"
#include "movements/movement_store.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "platform/padding.h"

namespace lorvan {
namespace {

CarriedBalance carriedInto(Connection& main, QDate day)
{
    const bool isCashDay = main.prepare("SELECT 1 FROM tameio WHERE hmeromhnia=? LIMIT 1").bind(day).step();
    return isCashDay ? carriedBalance(main, day) : CarriedBalance{};
}

QString carriedText(const CarriedBalance& carried)
{
    if (!namesItsDay(carried))
        return QStringLiteral("Υπόλοιπο από την προηγούμενη ") + amountOrZeroText(carried.balance);
    return QStringLiteral("Υπόλοιπο από την ") + dateText(carried.fromDay) + QStringLiteral("    ")
        + amountText(carried.balance);
}

void addTotalsWithoutMovements(ReportDocument& document, Currency carried)
{
    document.SetFont({.bold = true});
    document.Paragraph(QStringLiteral("Σύνολο εσόδων 0\rΣυνολο εξόδων 0\rΥπόλοιπο ") + plainAmountText(carried));
    document.SetFont({.bold = false});
}

CashDayFigures addRows(
    ReportDocument& document, ReportTable& table, const std::vector<Movement>& movements, Currency carried)
{
    CashDayFigures figures;
    document.BeginCarry({3, 4});
    for (const Movement& movement : movements) {
        table.addRow({numberCell(table.nextNumber()), QString::number(movement.code), movement.description,
            amountOrZeroText(movement.income), amountOrZeroText(movement.expense)});
        document.CarryRow({movement.income, movement.expense});
        document.RowStandsFor({RowSubject::Kind::Movement, movement.key});
        figures.income += movement.income;
        figures.expense += movement.expense;
    }
    document.EndCarry();
    figures.closingBalance = carried + figures.income - figures.expense;
    return figures;
}

void addMovements(
    ReportDocument& document, const std::vector<Movement>& movements, Currency carried, const ReportProgress& progress)
{
    document.SetFont({.name = QStringLiteral("arial greek"), .size = 10, .bold = false});
    ReportTable table(document, QStringLiteral("^1100|^1000|<4000|>1500|>1500"), progress);
    table.begin(
        1, rightAligned(u"α/α", 5) + QStringLiteral("|Κωδ.|Περιγραφή|Εσοδα|Εξοδα"), QStringLiteral(" |  | | |"));
    const CashDayFigures figures = addRows(document, table, movements, carried);
    document.SetFont({.size = 10, .bold = true});
    table.addTotals({u"", u"", QStringLiteral("Υπόλοιπο = ") + amountOrZeroText(figures.closingBalance),
        amountOrZeroText(figures.income), amountOrZeroText(figures.expense)});
}

} // namespace

ReportDocument dailyCashReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    const Transaction reading(main, Transaction::View::Steady);
    const CarriedBalance carried = carriedInto(main, inputs.end);
    const std::vector<Movement> movements = movementsOf(main, inputs.end);

    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.SetHeader(
        QStringLiteral("Τ α μ ε ί ο  Η μ έ ρ α ς   ") + inputs.endText + QStringLiteral("  ") + inputs.heading);
    document.Paragraph(lineBreak);
    document.Paragraph(carriedText(carried) + u'\r');
    document.Paragraph(lineBreak);
    if (movements.empty())
        addTotalsWithoutMovements(document, carried.balance);
    else
        addMovements(document, movements, carried.balance, progress);
    document.EndDoc();
    return document;
}

} // namespace lorvan
