#include "reports/cash_summary_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/amount_text.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

struct Totals {
    Currency income;
    Currency expense;
};

Totals addCashDays(ReportDocument& document, ReportTable& table, Statement cashDays)
{
    Totals totals;
    while (cashDays.step()) {
        const Currency income = cashDays.currency(0);
        const Currency expense = cashDays.currency(1);
        table.addRow({QString::number(table.nextNumber()), amountOrZeroText(income), amountOrZeroText(expense),
            amountOrZeroText(cashDays.currency(2)), shortDateText(cashDays.date(3))});
        document.RowStandsFor({RowSubject::Kind::Day, cashDays.integer(3)});
        totals.income += income;
        totals.expense += expense;
    }
    return totals;
}

Statement cashDaysOf(Connection& main, const ReportInputs& inputs)
{
    auto cashDays = main.prepare("SELECT esoda, ejoda, ypoloipo, hmeromhnia FROM tameio"
                                 " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY hmeromhnia DESC, aa DESC");
    cashDays.bind(inputs.start, inputs.end);
    return cashDays;
}

} // namespace

ReportDocument cashSummaryReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.Paragraph(lineBreak);
    document.SetHeader(QStringLiteral("Αποτελέσματα ταμείου συνοπτικά από ") + inputs.startText
        + QStringLiteral(" έως ") + inputs.endText + QStringLiteral("   ") + inputs.heading);

    document.SetFont({.bold = true});
    ReportTable table(document, QStringLiteral(">1000|>1800|>1800|>1800|<2000"), progress);
    table.begin(2, QStringLiteral("α/α|Έσοδα|Έξοδα|Υπόλοιπο|Ημερομηνία"), QStringLiteral(" | | |"));
    document.SetFont({.bold = false});
    const Totals totals = addCashDays(document, table, cashDaysOf(main, inputs));
    document.SetFont({.bold = true});
    table.addTotals({u"Σύνολα ", amountOrZeroText(totals.income), amountOrZeroText(totals.expense),
        amountOrZeroText(totals.income - totals.expense)});
    document.EndDoc();
    return document;
}

} // namespace lorvan
