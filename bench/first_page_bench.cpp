// How long each report takes until its first page is painted, beside the reading of its rows with one statement.
//
//   lorvan-first-page-bench [FOLDER [REPORT]]      all reports, or those whose name begins so, as 4
//
// The book is that of lorvan-bench: it is made in FOLDER (default: lorvan-bench in TMPDIR) where it is missing, and
// kept. All reports are over the whole book. Figures are processor time in milliseconds, so that they do not depend on
// who else uses the machine; both sides keep their connection, and with it their page cache, between samples.

#include "bare_sql.h"
#include "book/book.h"
#include "book_generator.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "report_pages.h"
#include "reports/cash_analysis_report.h"
#include "reports/cash_summary_report.h"
#include "reports/cheque_report.h"
#include "reports/code_list_report.h"
#include "reports/daily_cash_report.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "reports/unclosed_days_report.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

using namespace lorvan;
using namespace lorvan::bench;

constexpr int movements = 1'000'000;
constexpr int samples = 5;
constexpr double target = 1.5;
constexpr double frame = 16; ///< Milliseconds of one picture on screen, which nobody can see.

using Report = ReportDocument (*)(Connection&, const ReportInputs&, const ReportProgress&);

struct Case {
    const char* name;
    Report report;
    ReportInputs inputs;
    const char* query; ///< With the period as its parameters, if it has any.
    bool isOnClosings = false; ///< In the other file.
};

double millisecondsOf(const std::function<void()>& action)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    action();
    return now() - begin;
}

void showFirstPage(Connection& connection, const Case& each, QImage& screen)
{
    bool isPainted = false;
    const auto paint = [&](const ReportDocument& document) {
        const ReportPages pages(document);
        QPainter painter(&screen);
        painter.scale(96.0 / 1440, 96.0 / 1440);
        pages.paintPage(painter, 0);
        isPainted = true;
    };
    try {
        paint(each.report(connection, each.inputs, ReportProgress([&](int) { return !isPainted; }, paint)));
    } catch (const ReportCancelled&) {
        // A long report shows its beginning; what the rest takes is measured by itself.
    }
}

double median(std::vector<double>& times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void measure(const Case& each, const BookFiles& files, KeyRing& keys)
{
    const QString path = each.isOnClosings ? files.auxiliaryDatabase() : files.mainDatabase();
    Connection connection = Connection::open(path, keys.keyFor(path));
    const BareConnection bare(path, keys.keyFor(path).engineText());
    const BareStatement query(bare, each.query);
    QImage screen(1200, 1200, QImage::Format_RGB32);
    std::vector<double> floors;
    std::vector<double> pages;
    std::vector<double> wholes;
    for (int i = 0; i <= samples; ++i) { // the first one fills caches and loads fonts
        const double floor = millisecondsOf([&] {
            query.run({storedDate(each.inputs.start), storedDate(each.inputs.end)});
        });
        const double page = millisecondsOf([&] { showFirstPage(connection, each, screen); });
        const double whole = millisecondsOf([&] { (void)each.report(connection, each.inputs, {}); });
        if (i > 0) {
            floors.push_back(floor);
            pages.push_back(page);
            wholes.push_back(whole);
        }
    }
    const double floor = median(floors);
    const double page = median(pages);
    std::printf("| %s | %.1f | %.1f | %.2f | %.1f |%s\n", each.name, floor, page, page / floor, median(wholes),
        page > target * floor + frame ? " MISSED" : "");
    std::fflush(stdout);
}

ReportInputs wholeBook(QDate start = oldestDay())
{
    ReportInputs inputs;
    inputs.start = start;
    inputs.end = newestDay();
    return inputs;
}

ReportInputs summary()
{
    ReportInputs inputs = wholeBook();
    inputs.form = ReportForm::Summary;
    return inputs;
}

ReportInputs card()
{
    ReportInputs inputs = wholeBook();
    inputs.cardColumns[0].groups = {1, 2, 3};
    inputs.cardColumns[1].groups = {4, 5, 6};
    inputs.cardColumns[2].groups = {7, 8};
    return inputs;
}

ReportInputs analysis()
{
    ReportInputs inputs = wholeBook(newestDay());
    qint32 code = firstCode;
    for (AnalysisGroup& group : inputs.analysisGroups) {
        for (CodeBox& box : group.boxes)
            box = codeBoxOf(QString::number(code++) + QStringLiteral(" κωδικός"));
    }
    return inputs;
}

constexpr auto byGroup =
    "SELECT DISTINCT aa_omada, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos FROM kinhseis"
    " NOT INDEXED WHERE hmeromhnia BETWEEN ? AND ? ORDER BY aa_omada, kvdikos, hmeromhnia DESC";

std::vector<Case> cases()
{
    return {
        {"1 daily cash", dailyCashReport, wholeBook(ordinaryDay()),
            "SELECT aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh, L_tajeos FROM kinhseis"
            " WHERE hmeromhnia=?2 AND hmeromhnia>=?1 ORDER BY aa"},
        {"2 list of codes", codeListReport, wholeBook(), "SELECT * FROM kvdikoi WHERE ?1<?2 ORDER BY kvdikos"},
        {"3 cash summary", cashSummaryReport, wholeBook(),
            "SELECT esoda, ejoda, ypoloipo, hmeromhnia FROM tameio WHERE hmeromhnia BETWEEN ? AND ?"
            " ORDER BY hmeromhnia DESC"},
        {"4 by code", movementsByCodeReport, wholeBook(),
            "SELECT kvdikos, hmeromhnia, perigrafh, L_tajeos, esoda, ejoda FROM kinhseis NOT INDEXED"
            " WHERE hmeromhnia BETWEEN ? AND ? ORDER BY kvdikos, hmeromhnia DESC, aa"},
        {"4 by code, sums", movementsByCodeReport, summary(),
            "SELECT kvdikos, sum(esoda), sum(ejoda), sum(L_tajeos) FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ?"
            " GROUP BY kvdikos"},
        {"5 by group", movementsByGroupReport, wholeBook(), byGroup},
        {"6 group card", groupCardReport, card(), byGroup},
        {"7 cheques", chequeReport, wholeBook(),
            "SELECT hmeromhnia, L_tajeos, esoda, ejoda, kvdikos, perigrafh FROM kinhseis"
            " WHERE hmeromhnia BETWEEN ? AND ? AND epitagh<>0 ORDER BY hmeromhnia DESC, kvdikos, aa"},
        {"8 cash analysis", cashAnalysisReport, analysis(),
            "SELECT sum(esoda), sum(ejoda) FROM kinhseis WHERE kvdikos BETWEEN 101 AND 108 AND hmeromhnia BETWEEN 0*?1"
            " AND ?2"},
        {"9 unclosed days", unclosedDaysReport, wholeBook(),
            "SELECT DISTINCT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos BETWEEN ? AND ?", true},
    };
}

void run(const QString& folder, const QString& wanted)
{
    const BookFiles files(folder + QStringLiteral("/%1").arg(movements));
    QDir().mkpath(files.dataFolder());
    ensureBook(files, movements);
    KeyRing keys(bookPassword());
    std::printf("| report | query, ms | first page, ms | ratio | whole document, ms |\n|---|---|---|---|---|\n");
    for (const Case& each : cases()) {
        if (QString::fromUtf8(each.name).startsWith(wanted))
            measure(each, files, keys);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    try {
        const QStringList arguments = QCoreApplication::arguments();
        run(arguments.value(1, QDir::tempPath() + QStringLiteral("/lorvan-bench")), arguments.value(2));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
