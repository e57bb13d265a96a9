#include "reports/cheque_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/padding.h"
#include "reports/movement_choice.h"

#include <string>

namespace lorvan {
namespace {

constexpr int sumWidth = 11;

struct Amounts {
    Currency memorandum;
    Currency income;
    Currency expense;
};

Amounts amountsIn(const Statement& cheque)
{
    return {cheque.currency(1), cheque.currency(2), cheque.currency(3)};
}

/// Whether the book has an index of the cheques alone: no other serves this condition.
bool hasChequeIndex(Connection& main)
{
    auto plan = main.prepare("EXPLAIN QUERY PLAN SELECT aa FROM kinhseis WHERE epitagh<>0");
    return plan.step() && plan.text(3).contains(QStringLiteral("USING"));
}

Statement chequesOf(Connection& main, const ReportInputs& inputs, std::string_view order)
{
    auto cheques =
        main.prepare(std::string("SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh, aa FROM ")
                         .append(hasChequeIndex(main) ? "kinhseis" : movementsTableFor(main, inputs.start, inputs.end))
                         .append(" WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY ")
                         .append(order));
    cheques.bind(inputs.start, inputs.end);
    return cheques;
}

void start(ReportDocument& document, const QString& title, const ReportInputs& inputs)
{
    document.StandardPageSetup();
    document.StartDoc();
    document.SetHeader(title + dateText(inputs.start) + QStringLiteral(" έως ") + dateText(inputs.end)
        + QStringLiteral("   ") + inputs.heading);
}

void addNoCheques(ReportDocument& document)
{
    document.Paragraph(QStringLiteral("Δεν υπάρχουν καταχωρήσεις επιταγών στο παραπάνω διάστημα"));
}

void startCheques(ReportDocument& document, const QString& font)
{
    document.SetMargins({.left = QStringLiteral("0.5cm"), .right = QStringLiteral("0.5cm")});
    document.Paragraph(lineBreak);
    document.SetFont({.name = font, .size = 10, .bold = false});
}

/// From the statement's current row.
Amounts addCheques(ReportDocument& document, ReportTable& table, Statement& cheques)
{
    Amounts totals;
    document.BeginCarry({4, 5, 6});
    do {
        const Amounts amounts = amountsIn(cheques);
        table.addRow({numberCell(table.nextNumber()), weekdayDateText(cheques.date(0)),
            QString::number(cheques.number(4)), cheques.text(5), amountOrBlankText(amounts.memorandum),
            amountOrZeroText(amounts.income), amountOrZeroText(amounts.expense)});
        document.CarryRow({amounts.memorandum, amounts.income, amounts.expense});
        document.RowStandsFor({RowSubject::Kind::Movement, cheques.integer(6)});
        totals.memorandum += amounts.memorandum;
        totals.income += amounts.income;
        totals.expense += amounts.expense;
    } while (cheques.step());
    document.EndCarry();
    return totals;
}

void addDetails(ReportDocument& document, Statement cheques, const ReportProgress& progress)
{
    if (!cheques.step())
        return addNoCheques(document);
    startCheques(document, QStringLiteral("arial greek"));
    ReportTable table(document, QStringLiteral("^800|1500|900|<3400|>1350|>1250|>1250"), progress);
    table.begin(1, rightAligned(u"α/α", 4) + QStringLiteral("|Ημερ/νια|Κωδ.|Περιγραφή|Λ τάξεως|Εσοδα|Εξοδα"),
        QStringLiteral(" |  | | ||"));
    const Amounts totals = addCheques(document, table, cheques);
    document.SetFont({.size = 11, .bold = true});
    table.addTotals({u"", u"", u"", QStringLiteral("Διαφορά = ") + amountOrZeroText(totals.income - totals.expense),
        amountText(totals.memorandum), amountOrZeroText(totals.income), amountOrZeroText(totals.expense)});
}

struct ChequeSum {
    QDate day;
    Amounts amounts; ///< The memorandum amount is the sum.
};

std::vector<ChequeSum> sumsOf(Statement cheques)
{
    std::vector<ChequeSum> sums;
    while (cheques.step()) {
        const ChequeSum cheque{cheques.date(0), amountsIn(cheques)};
        const bool isAnother = sums.empty() || sums.back().day != cheque.day
            || sums.back().amounts.income != cheque.amounts.income
            || sums.back().amounts.expense != cheque.amounts.expense;
        if (isAnother)
            sums.push_back(cheque);
        else
            sums.back().amounts.memorandum += cheque.amounts.memorandum;
    }
    return sums;
}

void addSums(ReportDocument& document, const std::vector<ChequeSum>& sums, const ReportProgress& progress)
{
    if (sums.empty())
        return addNoCheques(document);
    startCheques(document, QStringLiteral("courier new greek"));
    ReportTable table(document, QStringLiteral("^800|1800|2500"), progress);
    table.begin(1, rightAligned(u"α/α", 4) + QStringLiteral("|Ημερ/νια|Σύνολο LT"), QStringLiteral("|||"));
    document.BeginCarry({2});
    for (const ChequeSum& sum : sums) {
        table.addRow({numberCell(table.nextNumber()), weekdayDateText(sum.day),
            amountOrBlankText(sum.amounts.memorandum).rightJustified(sumWidth)});
        document.CarryRow({sum.amounts.memorandum});
        document.RowStandsFor({RowSubject::Kind::Day, storedDate(sum.day)});
    }
    document.EndCarry();
}

} // namespace

ReportDocument chequeReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    ReportDocument document;
    if (inputs.form == ReportForm::Detailed) {
        start(document, QStringLiteral("Εκτύπωση επιταγών από "), inputs);
        addDetails(document, chequesOf(main, inputs, "hmeromhnia DESC, kvdikos, aa"), progress);
    } else {
        start(document, QStringLiteral("Εκτύπωση επιταγών συνοπτικά από "), inputs);
        addSums(document, sumsOf(chequesOf(main, inputs, "hmeromhnia, esoda, ejoda")), progress);
    }
    document.EndDoc();
    return document;
}

} // namespace lorvan
