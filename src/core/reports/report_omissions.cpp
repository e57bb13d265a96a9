#include "reports/report_omissions.h"

#include "document/report_cells.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "reports/cash_analysis_report.h"
#include "reports/movement_choice.h"
#include "reports/movements_by_code_report.h"
#include "reports/omission_lines.h"
#include "reports/unclosed_days_report.h"

namespace lorvan {
namespace {

using Omissions = std::vector<ReportOmission>;
using By = MovementChoice::By;

constexpr auto newestFirst = " ORDER BY +hmeromhnia DESC, aa DESC";
constexpr auto groupsOfCodes = " (SELECT ifnull(aa_omadas, 0) FROM kvdikoi)";

OmittedMovements movementsWhere(Connection& main, const MovementChoice& choice, const std::string& condition)
{
    auto rows = main.prepare(omittedColumns() + movementsFor(main, choice) + condition + newestFirst);
    rows.bind(choice.start, choice.end);
    return listMovements(rows);
}

QString leftOut(const OmittedMovements& movements, const QString& reason)
{
    return QStringLiteral("Εκτός εκτύπωσης: %1, γιατί %2.").arg(movements.summary(), reason);
}

// Movements by group, group card

/// `compared` are the columns that the report compares in addition to those common to all movements.
void addEqualMovements(
    Omissions& omissions, Connection& main, const MovementChoice& choice, const std::string& compared)
{
    const std::string memorandum = compared.empty() ? "NULL" : "L_tajeos";
    auto rows =
        main.prepare(omittedColumns("count(*)", memorandum) + movementsFor(main, choice) + " AND ifnull(aa_omada, 0) IN"
            + groupsOfCodes + " GROUP BY +aa_omada, kvdikos, hmeromhnia, perigrafh, esoda, ejoda" + compared
            + " HAVING count(*)>1 ORDER BY +hmeromhnia DESC, max(aa) DESC");
    rows.bind(choice.start, choice.end);
    const OmittedMovements movements = listMovements(rows, CountOf::Alike);
    if (movements.missing > 0)
        omissions.push_back(omissionOf(
            QStringLiteral("Όμοιες κινήσεις μετρούν μία φορά. Εκτός εκτύπωσης: %1.").arg(movements.summary()),
            movements));
}

void addMovementsWithoutGroup(Omissions& omissions, Connection& main, const MovementChoice& choice)
{
    const OmittedMovements movements =
        movementsWhere(main, choice, std::string(" AND ifnull(aa_omada, 0) NOT IN").append(groupsOfCodes));
    if (movements.missing > 0)
        omissions.push_back(
            omissionOf(leftOut(movements, QStringLiteral("η ομάδα τους διαγράφηκε ή δεν έχει κωδικούς")), movements));
}

Omissions ofMovementsByGroup(Connection& main, const ReportInputs& inputs)
{
    const MovementChoice choice{inputs.start, inputs.end, By::Group, inputs.groups};
    Omissions omissions;
    addEqualMovements(omissions, main, choice, ", L_tajeos");
    addMovementsWithoutGroup(omissions, main, choice);
    return omissions;
}

/// Movements without a group cannot be in any column, whatever was chosen.
Omissions ofGroupCard(Connection& main, const ReportInputs& inputs)
{
    MovementChoice choice{inputs.start, inputs.end, By::Group};
    for (const CardColumn& column : inputs.cardColumns)
        choice.numbers.insert(choice.numbers.end(), column.groups.begin(), column.groups.end());
    Omissions omissions;
    if (choice.numbers.empty())
        return omissions;
    addEqualMovements(omissions, main, choice, {});
    addMovementsWithoutGroup(omissions, main, {inputs.start, inputs.end, By::Group});
    return omissions;
}

// Movements by code

MovementChoice choiceOfCodes(const ReportInputs& inputs)
{
    return {inputs.start, inputs.end, By::Code, inputs.codes};
}

/// What is printed for these movements together.
Currency sumOfWholeEuros(Connection& main, const MovementChoice& choice, const std::string& condition)
{
    auto rows = main.prepare("SELECT L_tajeos" + movementsFor(main, choice) + condition);
    rows.bind(choice.start, choice.end);
    Currency sum;
    while (rows.step())
        sum += wholeEuros(rows.currency(0));
    return sum;
}

Omissions ofDetailsByCode(Connection& main, const ReportInputs& inputs)
{
    const std::string hasCents = " AND L_tajeos%10000<>0";
    const OmittedMovements rounded = movementsWhere(main, choiceOfCodes(inputs), hasCents);
    if (rounded.lines == 0)
        return {};
    const QString printed = amountText(sumOfWholeEuros(main, choiceOfCodes(inputs), hasCents));
    const QString exact = amountText(rounded.sums.memorandum);
    const QString text = QStringLiteral("Ο Λ τάξεως τυπώνεται σε ακέραια ευρώ και στρογγυλεύτηκε σε %1: %2.");
    const QString sums = printed == exact ? QStringLiteral("το άθροισμα δεν αλλάζει")
                                          : QStringLiteral("αθροίζεται %1 αντί για %2").arg(printed, exact);
    return {omissionOf(text.arg(movementsText(rounded.lines), sums), rounded)};
}

Omissions ofSumsByCode(Connection& main, const ReportInputs& inputs)
{
    const OmittedMovements movements = movementsWhere(
        main, choiceOfCodes(inputs), " AND ifnull(kvdikos, 0) NOT IN (SELECT ifnull(kvdikos, 0) FROM kvdikoi)");
    if (movements.missing == 0)
        return {};
    return {omissionOf(leftOut(movements, QStringLiteral("ο κωδικός τους δεν υπάρχει πια")), movements)};
}

// Cash analysis

Omissions ofCashAnalysis(Connection& main, const ReportInputs& inputs)
{
    if (!hasCashAnalysis(main, inputs.start))
        return {};
    const auto balances = analysisBalances(main, inputs);
    Currency held;
    MovementChoice choice{QDate(), inputs.start, By::Code};
    for (std::size_t i = 0; i < balances.size(); ++i) {
        held += balances[i];
        const std::vector<qint32> codes = codesOf(inputs.analysisGroups[i]);
        if (balances[i] < Currency())
            choice.numbers.insert(choice.numbers.end(), codes.begin(), codes.end());
    }
    if (held >= Currency())
        return {};
    return {omissionOf(QStringLiteral("Τα «Μετρητά στο ταμείο» ξεπερνούν το υπόλοιπο της ημέρας κατά %1, γιατί ομάδες "
                                      "έχουν περισσότερα έξοδα από έσοδα.")
                           .arg(amountText(-held)),
        movementsWhere(main, choice, {}))};
}

// Days that are not closed

ReportOmission daysOmission(const QString& text, const std::set<QDate>& closed, QDate from, QDate to)
{
    ReportOmission omission{text, QStringLiteral("Ημερ/νια    Ημέρα")};
    for (QDate day = to; day >= from; day = day.addDays(-1)) {
        if (!closed.contains(day) && ++omission.concerned <= ReportOmission::mostListed)
            omission.lines.append(dateText(day) + QStringLiteral("  ") + weekdayName(day));
    }
    return omission;
}

Omissions ofUnclosedDays(Connection& auxiliary, const ReportInputs& inputs)
{
    const std::set<QDate> closed = closedCashDays(auxiliary);
    if (closed.empty())
        return {};
    const QString notListed = QStringLiteral("Οι ημέρες που δεν έκλεισαν δεν τυπώθηκαν, γιατί η περίοδος %1.");
    if (*closed.rbegin() < inputs.end)
        return {daysOmission(notListed.arg(QStringLiteral("τελειώνει μετά την τελευταία ημερομηνία ταμείου")), closed,
            inputs.start, inputs.end)};
    if (*closed.begin() > inputs.start)
        return {daysOmission(notListed.arg(QStringLiteral("αρχίζει πριν από την πρώτη ημερομηνία ταμείου")), closed,
            inputs.start, inputs.end)};
    if (closed.contains(inputs.end))
        return {};
    return {daysOmission(QStringLiteral("Η τελευταία ημέρα της περιόδου, %1, δεν εξετάζεται, και δεν έχει κλείσει.")
                             .arg(dateText(inputs.end)),
        closed, inputs.end, inputs.end)};
}

bool readsPeriod(Report report)
{
    const PeriodUse use = periodUse(report);
    return use.start && use.end;
}

} // namespace

std::vector<ReportOmission> reportOmissions(Connection& connection, Report report, const ReportInputs& inputs)
{
    if (readsPeriod(report) && inputs.start > inputs.end)
        return {{QStringLiteral("Η αρχή της περιόδου, %1, είναι μετά το τέλος της, %2: δεν βρίσκεται τίποτα.")
                     .arg(dateText(inputs.start), dateText(inputs.end))}};
    const Transaction reading(connection, Transaction::View::Steady);
    switch (report) {
    case Report::MovementsByCode:
        return inputs.form == ReportForm::Detailed ? ofDetailsByCode(connection, inputs)
                                                   : ofSumsByCode(connection, inputs);
    case Report::MovementsByGroup:
        return ofMovementsByGroup(connection, inputs);
    case Report::GroupCard:
        return ofGroupCard(connection, inputs);
    case Report::CashAnalysis:
        return ofCashAnalysis(connection, inputs);
    case Report::UnclosedDays:
        return ofUnclosedDays(connection, inputs);
    default:
        return {};
    }
}

} // namespace lorvan
