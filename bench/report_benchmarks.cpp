#include "benchmarks.h"

#include "bare_sql.h"
#include "book_generator.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "reports/cash_analysis_report.h"
#include "reports/cash_summary_report.h"
#include "reports/cheque_report.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"

#include <memory>

namespace lorvan::bench {
namespace {

constexpr double reportTarget = 2;
constexpr double microsecondsForARow = 2;
constexpr double microsecondsForAMovement = 3;
constexpr int samples = 7;

constexpr auto cashDaysOfPeriod = "SELECT esoda, ejoda, ypoloipo, hmeromhnia FROM tameio"
                                  " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY hmeromhnia DESC";
constexpr auto chequesInStoredOrder =
    "SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh FROM kinhseis NOT INDEXED"
    " WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY hmeromhnia DESC, kvdikos, aa";
constexpr auto chequesByDate = "SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh FROM kinhseis"
                               " WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY hmeromhnia DESC, kvdikos, aa";

constexpr auto movementsByCode = "SELECT kvdikos, hmeromhnia, perigrafh, L_tajeos, esoda, ejoda FROM kinhseis"
                                 " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY +kvdikos, hmeromhnia DESC, aa";
constexpr auto movementsOfACode = "SELECT kvdikos, hmeromhnia, perigrafh, L_tajeos, esoda, ejoda FROM kinhseis"
                                  " WHERE +hmeromhnia BETWEEN ? AND ? AND kvdikos=101 ORDER BY hmeromhnia DESC, aa";
constexpr auto sumsInStoredOrder = "SELECT sum(kvdikos), sum(esoda), sum(ejoda), sum(L_tajeos)"
                                   " FROM kinhseis NOT INDEXED WHERE hmeromhnia BETWEEN ? AND ?";
constexpr auto sumsByDate = "SELECT sum(kvdikos), sum(esoda), sum(ejoda), sum(L_tajeos)"
                            " FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ?";
/// The cheque mark makes it visit each row, whatever the index holds.
constexpr auto sumsByCodeIndex = "SELECT kvdikos, sum(esoda), sum(ejoda), sum(L_tajeos), sum(epitagh)"
                                 " FROM kinhseis WHERE +hmeromhnia BETWEEN ? AND ? GROUP BY kvdikos";
constexpr auto movementsByGroup =
    "SELECT DISTINCT aa_omada, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos FROM kinhseis"
    " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY +aa_omada, kvdikos, hmeromhnia DESC";

using Report = ReportDocument (*)(Connection&, const ReportInputs&, const ReportProgress&);

struct ReportBench {
    explicit ReportBench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , main(Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite))
    {
    }

    KeyRing keys;
    BareConnection bare;
    Connection main;
};

ReportInputs period(QDate start, QDate end)
{
    ReportInputs inputs;
    inputs.start = start;
    inputs.end = end;
    return inputs;
}

/// The program's side is a report, the floor the reading of its rows with one statement.
Comparison reportComparison(const std::shared_ptr<ReportBench>& bench, const QString& name, Report report,
    const char* sql, const ReportInputs& inputs, double microsecondsEach = microsecondsForARow,
    std::optional<double> target = reportTarget)
{
    const auto scan = std::make_shared<BareStatement>(bench->bare, sql);
    const std::size_t rows = report(bench->main, inputs, {}).rows().size();
    return {name, {[=] {
                scan->run({storedDate(inputs.start), storedDate(inputs.end)});
            }},
        {[=] { (void)report(bench->main, inputs, {}); }}, target, samples,
        microsecondsEach * static_cast<double>(rows)};
}

ReportInputs summary(ReportInputs inputs)
{
    inputs.form = ReportForm::Summary;
    return inputs;
}

ReportInputs ofOneCode(ReportInputs inputs)
{
    inputs.codes = {firstCode};
    return inputs;
}

/// Three columns with all groups of the book between them.
ReportInputs card(ReportInputs inputs)
{
    inputs.cardColumns[0].groups = {1, 2, 3};
    inputs.cardColumns[1].groups = {4, 5, 6};
    inputs.cardColumns[2].groups = {7, 8};
    return inputs;
}

/// Of the newest day, with a fifth of all movements in its eight codes.
ReportInputs analysis()
{
    ReportInputs inputs = period(newestDay(), newestDay());
    qint32 code = firstCode;
    for (AnalysisGroup& group : inputs.analysisGroups) {
        for (CodeBox& box : group.boxes)
            box = codeBoxOf(QString::number(code++) + QStringLiteral(" κωδικός"));
    }
    return inputs;
}

/// The floor takes no notice of the day: nearly all movements lie before it.
Comparison analysisComparison(const std::shared_ptr<ReportBench>& bench)
{
    const auto scan = std::make_shared<BareStatement>(bench->bare, sumsInStoredOrder);
    const ReportInputs inputs = analysis();
    return {QStringLiteral("cash analysis, eight codes"), {[=] {
                scan->run({storedDate(oldestDay()), storedDate(inputs.start)});
            }},
        {[=] { (void)cashAnalysisReport(bench->main, inputs, {}); }}, reportTarget, samples};
}

std::vector<Comparison> movementReportBenchmarks(const std::shared_ptr<ReportBench>& bench)
{
    const ReportInputs all = period(oldestDay(), newestDay());
    const ReportInputs year = period(middleDay(), middleDay().addYears(1));
    const double each = microsecondsForAMovement;
    return {
        reportComparison(bench, QStringLiteral("by code, a year"), movementsByCodeReport, movementsByCode, year, each),
        reportComparison(bench, QStringLiteral("by code, one code, whole book"), movementsByCodeReport,
            movementsOfACode, ofOneCode(all), each),
        reportComparison(
            bench, QStringLiteral("sums by code, a year"), movementsByCodeReport, sumsByDate, summary(year), each),
        reportComparison(bench, QStringLiteral("sums by code, whole book"), movementsByCodeReport, sumsInStoredOrder,
            summary(all), each),
        reportComparison(bench, QStringLiteral("sums by code, whole book, by index"), movementsByCodeReport,
            sumsByCodeIndex, summary(all), each, std::nullopt),
        reportComparison(
            bench, QStringLiteral("by group, a year"), movementsByGroupReport, movementsByGroup, year, each),
        reportComparison(
            bench, QStringLiteral("group card, a year"), groupCardReport, movementsByGroup, card(year), each),
        analysisComparison(bench),
    };
}

} // namespace

std::vector<Comparison> reportBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<ReportBench>(files);
    const ReportInputs all = period(oldestDay(), newestDay());
    const ReportInputs month = period(middleDay(), middleDay().addDays(30));
    std::vector<Comparison> comparisons{
        reportComparison(bench, QStringLiteral("cash summary, whole book"), cashSummaryReport, cashDaysOfPeriod, all),
        reportComparison(bench, QStringLiteral("cheques, whole book"), chequeReport, chequesInStoredOrder, all),
        reportComparison(bench, QStringLiteral("cheques, a month"), chequeReport, chequesByDate, month),
    };
    for (Comparison& comparison : movementReportBenchmarks(bench))
        comparisons.push_back(std::move(comparison));
    return comparisons;
}

} // namespace lorvan::bench
