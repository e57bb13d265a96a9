#include "reports/movements_by_code_report.h"

#include "document/report_cells.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "platform/padding.h"
#include "reports/code_movements.h"
#include "reports/movement_sections.h"

#include <cstdlib>
#include <set>
#include <unordered_map>
#include <utility>

namespace lorvan {
namespace {

constexpr ReportColour red = reportColour(255, 0, 0);
constexpr ReportColour black = 0;
constexpr int codeWidth = 5;

void start(ReportDocument& document)
{
    document.StandardPageSetup();
    document.StartDoc();
}

QString titleOf(const ReportInputs& inputs)
{
    return QStringLiteral("Σύνολο κινήσεων  με επιλογή κωδικού από ") + inputs.startText + QStringLiteral(" έως ")
        + inputs.endText + QStringLiteral("   ") + inputs.heading;
}

void addDifference(ReportDocument& document, ReportTable& table, Currency difference, const QStringList& cells)
{
    document.SetTextColor(difference < Currency() ? red : black);
    table.addTotals(cells);
    document.SetTextColor(black);
}

/// The catalogue's line for each code; if a code has several rows, the first one entered.
std::unordered_map<qint32, QString> codeLines(Connection& main)
{
    std::unordered_map<qint32, QString> lines;
    for (const MovementCode& code : listCodes(main, CodeSelection::All))
        lines.try_emplace(code.code, code.listLine.trimmed());
    return lines;
}

QStringList detailedSumCells(const QString& label, const MovementSums& sums)
{
    return {QString(), QString(), QString(), label, amountOrBlankText(sums.memorandum), amountOrBlankText(sums.income),
        amountOrBlankText(sums.expense)};
}

MovementSums addDetails(Connection& main, ReportDocument& document, ReportTable& table, const CodeMovements& movements)
{
    auto lines = codeLines(main);
    MovementSections sections(document, table, detailedSumCells,
        {{4, &MovementSums::memorandum}, {5, &MovementSums::income}, {6, &MovementSums::expense}});
    for (const CodeMovement& movement : movements) {
        const QString& line = lines.try_emplace(movement.code, u' ').first->second;
        const QString codeCell = sections.enter(movement.code, line) ? line : QString(u' ');
        MovementSums amounts = movement.amounts;
        amounts.memorandum = wholeEuros(amounts.memorandum);
        sections.addRow({QString::number(table.nextNumber()), codeCell, shortDateText(dateFromStored(movement.day)),
                            movements.description(movement), amountOrBlankText(amounts.memorandum),
                            amountOrBlankText(amounts.income), amountOrBlankText(amounts.expense)},
            amounts);
        document.RowStandsFor({RowSubject::Kind::Movement, movement.key});
    }
    return sections.addTotals();
}

ReportDocument detailedReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    ReportDocument document;
    start(document);
    ReportTable table(document, QStringLiteral(">800|<1700|<1300|3600|>1250|>1250|>1250"), progress);
    addMovementHeadings(document, table, titleOf(inputs),
        QStringLiteral("α/α|Κωδ.|Ημερ/νια|Περιγραφή|Λ τάξεως|Έσοδο|Έξοδο"), QStringLiteral("|||||"));
    const CodeMovements movements(main, inputs);
    if (!movements.isEmpty()) {
        const MovementSums totals = addDetails(main, document, table, movements);
        const Currency difference = totals.income - totals.expense;
        addDifference(
            document, table, difference, {QString(), QString(), QStringLiteral("Διαφορά"), amountText(difference)});
    } else {
        addNoMovements(document);
    }
    document.EndDoc();
    return document;
}

struct CodeSum {
    qint32 code = 0;
    QString description;
    MovementSums sums;
};

/// A code with several rows in the catalogue is listed once for each description.
std::vector<CodeSum> sumsOf(Connection& main, const ReportInputs& inputs)
{
    const auto sums = sumsByCode(main, inputs.start, inputs.end, inputs.codes);
    std::set<std::pair<qint32, QString>> taken;
    std::vector<CodeSum> rows;
    for (const MovementCode& code : listCodes(main, CodeSelection::All)) {
        const auto found = sums.find(code.code);
        if (found != sums.end() && taken.emplace(code.code, code.description).second)
            rows.push_back({code.code, code.description, found->second});
    }
    return rows;
}

QStringList summaryCells(const QString& number, const QString& code, const MovementSums& sums)
{
    return {number, code, amountOrBlankText(sums.memorandum), amountOrBlankText(sums.income),
        amountOrBlankText(sums.expense)};
}

MovementSums addSums(ReportDocument& document, ReportTable& table, const std::vector<CodeSum>& rows)
{
    MovementSums totals;
    for (const CodeSum& row : rows) {
        const QString code = rightAligned(QString::number(row.code), codeWidth) + u' ' + row.description;
        table.addRow(summaryCells(QString::number(table.nextNumber()), code, row.sums));
        document.RowStandsFor({RowSubject::Kind::Code, row.code});
        totals += row.sums;
    }
    return totals;
}

void addSummaryTotals(ReportDocument& document, ReportTable& table, const MovementSums& totals)
{
    document.SetFont({.bold = true});
    document.SetTableBorder(3);
    table.addTotals(summaryCells(QString(), QStringLiteral("Σύνολα"), totals));
    const Currency difference = totals.income - totals.expense;
    addDifference(document, table, difference, {QString(), QStringLiteral("Διαφορά  ") + amountText(difference)});
}

ReportDocument summaryReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    ReportDocument document;
    start(document);
    ReportTable table(document, QStringLiteral(">800|<4300|>1250|>1250|>1250"), progress);
    addMovementHeadings(
        document, table, titleOf(inputs), QStringLiteral("α/α|Κωδικος|Λ τάξεως|Έσοδο|Έξοδο"), QStringLiteral("||||"));
    const std::vector<CodeSum> rows = sumsOf(main, inputs);
    if (rows.empty())
        addNoMovements(document);
    else
        addSummaryTotals(document, table, addSums(document, table, rows));
    document.EndDoc();
    return document;
}

} // namespace

Currency wholeEuros(Currency amount)
{
    constexpr std::int64_t half = Currency::unitsPerEuro / 2;
    const std::lldiv_t euros = std::lldiv(amount.tenThousandths(), Currency::unitsPerEuro);
    const bool isRoundedAway = std::llabs(euros.rem) > half || (std::llabs(euros.rem) == half && euros.quot % 2 != 0);
    const Currency cut = amount - Currency::fromTenThousandths(euros.rem);
    if (!isRoundedAway)
        return cut;
    return cut + Currency::fromTenThousandths(euros.rem < 0 ? -Currency::unitsPerEuro : Currency::unitsPerEuro);
}

ReportDocument movementsByCodeReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    const Transaction reading(main, Transaction::View::Steady);
    return inputs.form == ReportForm::Detailed ? detailedReport(main, inputs, progress)
                                               : summaryReport(main, inputs, progress);
}

} // namespace lorvan
