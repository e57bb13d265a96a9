#include "reports/report_building.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/stop_check.h"
#include "reports/cash_analysis_report.h"
#include "reports/cash_summary_report.h"
#include "reports/cheque_report.h"
#include "reports/code_list_report.h"
#include "reports/daily_cash_report.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "reports/unclosed_days_report.h"

namespace lorvan {
namespace {

using Routine = ReportDocument (*)(Connection&, const ReportInputs&, const ReportProgress&);

Routine routineOf(Report report)
{
    switch (report) {
    case Report::DailyCash:
        return dailyCashReport;
    case Report::CodeList:
        return codeListReport;
    case Report::CashSummary:
        return cashSummaryReport;
    case Report::MovementsByCode:
        return movementsByCodeReport;
    case Report::MovementsByGroup:
        return movementsByGroupReport;
    case Report::GroupCard:
        return groupCardReport;
    case Report::Cheques:
        return chequeReport;
    case Report::CashAnalysis:
        return cashAnalysisReport;
    case Report::UnclosedDays:
        return unclosedDaysReport;
    }
    return nullptr;
}

QString databaseOf(Report report, const BookFiles& files)
{
    return report == Report::UnclosedDays ? files.auxiliaryDatabase() : files.mainDatabase();
}

using Reading = std::function<void(Connection& connection, const ReportProgress& counting)>;

/// Uses a connection of its own, and repeats the reading if somebody wrote in the meantime and no lock prevented it.
void readForReport(const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress,
    const Reading& read)
{
    const QString path = databaseOf(request.report, files);
    int rows = 0;
    const auto count = [&rows, &progress](int built) {
        rows = built;
        return progress(built);
    };
    const ReportProgress counting(count, [&progress](const ReportDocument& beginning) { progress.begun(beginning); });
    const StopCheck check([&rows, &progress] { return progress(rows); });
    Connection connection = openBookFile(path, keys);
    readSteadily(connection, [&] { read(connection, counting); });
}

} // namespace

QString suggestedFileName(const ReportRequest& request)
{
    QString name = request.title.section(QStringLiteral(" από"), 0, 0).remove(u'!').trimmed();
    if (request.report == Report::DailyCash)
        name += u' ' + dateText(request.inputs.end);
    else if (request.report == Report::CashAnalysis)
        name += u' ' + dateText(request.inputs.start);
    else if (request.report != Report::CodeList)
        name += u' ' + dateText(request.inputs.start) + QStringLiteral(" έως ") + dateText(request.inputs.end);
    return name;
}

ReportDocument buildReport(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress)
{
    ReportDocument document;
    const Routine routine = routineOf(request.report);
    if (routine)
        readForReport(request, files, keys, progress, [&](Connection& connection, const ReportProgress& counting) {
            document = routine(connection, request.inputs, counting);
        });
    return document;
}

std::vector<ReportOmission> findOmissions(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress)
{
    std::vector<ReportOmission> omissions;
    readForReport(request, files, keys, progress, [&](Connection& connection, const ReportProgress&) {
        omissions = reportOmissions(connection, request.report, request.inputs);
    });
    return omissions;
}

} // namespace lorvan
