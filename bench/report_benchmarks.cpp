#include "benchmarks.h"

#include "bare_sql.h"
#include "book_generator.h"
#include "platform/connection.h"
#include "platform/date_text.h"
#include "reports/cash_summary_report.h"
#include "reports/cheque_report.h"

#include <memory>

namespace lorvan::bench {
namespace {

constexpr double reportTarget = 2;
constexpr double microsecondsForARow = 2;
constexpr int samples = 7;

constexpr auto cashDaysOfPeriod = "SELECT esoda, ejoda, ypoloipo, hmeromhnia FROM tameio"
                                  " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY hmeromhnia DESC";
constexpr auto chequesInStoredOrder =
    "SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh FROM kinhseis NOT INDEXED"
    " WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY hmeromhnia DESC, kvdikos, aa";
constexpr auto chequesByDate = "SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh FROM kinhseis"
                               " WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY hmeromhnia DESC, kvdikos, aa";

using Report = ReportDocument (*)(Connection&, const ReportInputs&, const ReportProgress&);

struct ReportBench {
    explicit ReportBench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , main(Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase())))
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
    const char* sql, const ReportInputs& inputs)
{
    const auto scan = std::make_shared<BareStatement>(bench->bare, sql);
    const std::size_t rows = report(bench->main, inputs, {}).rows().size();
    return {name, {[=] {
                scan->run({storedDate(inputs.start), storedDate(inputs.end)});
            }},
        {[=] { (void)report(bench->main, inputs, {}); }}, reportTarget, samples,
        microsecondsForARow * static_cast<double>(rows)};
}

} // namespace

std::vector<Comparison> reportBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<ReportBench>(files);
    const ReportInputs all = period(oldestDay(), newestDay());
    const ReportInputs month = period(middleDay(), middleDay().addDays(30));
    return {
        reportComparison(bench, QStringLiteral("cash summary, whole book"), cashSummaryReport, cashDaysOfPeriod, all),
        reportComparison(bench, QStringLiteral("cheques, whole book"), chequeReport, chequesInStoredOrder, all),
        reportComparison(bench, QStringLiteral("cheques, a month"), chequeReport, chequesByDate, month),
    };
}

} // namespace lorvan::bench
