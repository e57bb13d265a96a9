#include "reports/unclosed_days_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

/// Empty if the period lies within the closed days.
QString outsideText(const std::set<QDate>& closed, const ReportInputs& inputs)
{
    if (closed.empty())
        return QStringLiteral("Δεν υπάρχουν κλεισμένα ταμεία");
    if (*closed.rbegin() < inputs.end)
        return QStringLiteral("Τελευταία ημερομηνία ταμείου ") + dateText(*closed.rbegin());
    if (*closed.begin() > inputs.start)
        return QStringLiteral("Πρώτη ημερομηνία ταμείου ") + dateText(*closed.begin());
    return {};
}

void addUnclosedDays(
    ReportDocument& document, const std::set<QDate>& closed, const ReportInputs& inputs, const ReportProgress& progress)
{
    document.SetFont({.size = 11});
    ReportTable table(document, QStringLiteral(">800|^1800|1800"), progress);
    table.begin(
        0, QStringLiteral("AA  |    Ημερομηνία | Ημ. εβδομάδος"), QStringLiteral("|||"), reportColour(240, 220, 220));
    for (QDate day = inputs.start; day < inputs.end; day = day.addDays(1)) {
        if (closed.contains(day))
            continue;
        table.addRow({QString::number(table.nextNumber()), dateText(day), weekdayName(day)});
        document.RowStandsFor({RowSubject::Kind::Day, storedDate(day)});
    }
}

} // namespace

std::set<QDate> closedCashDays(Connection& auxiliary)
{
    std::set<QDate> days;
    auto rows = auxiliary.prepare("SELECT hmeraklhsimatos FROM klhsimotameioy ORDER BY hmeraklhsimatos");
    while (rows.step()) {
        const QDate day = rows.date(0);
        if (day.isValid())
            days.insert(days.end(), day);
    }
    return days;
}

ReportDocument unclosedDaysReport(Connection& auxiliary, const ReportInputs& inputs, const ReportProgress& progress)
{
    const std::set<QDate> closed = closedCashDays(auxiliary);
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = QStringLiteral("2cm")});
    document.SetHeader(QStringLiteral("|Ταμεία που δεν έχουν κλήσει ") + QStringLiteral("   ") + inputs.heading);
    document.StartDoc();
    const QString outside = outsideText(closed, inputs);
    if (outside.isEmpty())
        addUnclosedDays(document, closed, inputs, progress);
    else
        document.Paragraph(outside);
    document.EndDoc();
    return document;
}

} // namespace lorvan
