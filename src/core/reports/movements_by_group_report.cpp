#include "reports/movements_by_group_report.h"

#include "document/report_cells.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "reports/group_movements.h"
#include "reports/movement_sections.h"

namespace lorvan {
namespace {

void start(ReportDocument& document)
{
    document.StandardPageSetup();
    document.SetMargins({.left = 1400});
    document.SetOrientation(ReportOrientation::Landscape);
    document.SetPaperSize(ReportPaper::A4);
    document.SetFont({.size = 10, .bold = false});
    document.StartDoc();
}

QString titleOf(const ReportInputs& inputs)
{
    return QStringLiteral("Σύνολο κινήσεων  με επιλογή ομάδας από ") + inputs.startText + QStringLiteral(" έως ")
        + inputs.endText + QStringLiteral("   ") + inputs.heading;
}

QStringList sumCells(const QString& label, const MovementSums& sums)
{
    return {QString(), QString(), QString(), QString(), label, amountOrBlankText(sums.income),
        amountOrBlankText(sums.expense), amountOrBlankText(sums.memorandum)};
}

void addRows(ReportDocument& document, ReportTable& table, const std::vector<GroupMovement>& movements)
{
    MovementSections sections(document, table, sumCells,
        {{5, &MovementSums::income}, {6, &MovementSums::expense}, {7, &MovementSums::memorandum}});
    for (const GroupMovement& movement : movements) {
        const QString group = sections.enter(movement.group, movement.groupName) ? movement.groupName : QString(u' ');
        sections.addRow(
            {QString::number(table.nextNumber()), group, QString::number(movement.code), shortDateText(movement.day),
                movement.description.trimmed(), amountOrBlankText(movement.amounts.income),
                amountOrBlankText(movement.amounts.expense), amountOrBlankText(movement.amounts.memorandum)},
            movement.amounts);
        document.RowStandsFor({RowSubject::Kind::Movement, movement.key});
    }
    sections.addTotals();
}

} // namespace

ReportDocument movementsByGroupReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    const Transaction reading(main, Transaction::View::Steady);
    const std::vector<GroupMovement> movements =
        groupMovements(main, inputs.start, inputs.end, inputs.groups, Sameness::AmountsAndMemorandum);

    ReportDocument document;
    start(document);
    ReportTable table(document, QStringLiteral("^800|<1800|<1000|^1500|<4300|>1900|>1900|>1900"), progress);
    addMovementHeadings(document, table, titleOf(inputs),
        QStringLiteral("α/α|Ομάδα|Κωδ.|Ημερ/νια|Περιγραφή|Έσοδο|Έξοδο|Λ ταξ"), QStringLiteral("||||||"));
    if (movements.empty())
        addNoMovements(document);
    else
        addRows(document, table, movements);
    document.EndDoc();
    return document;
}

} // namespace lorvan
