// Measures the picture of a book and the card of a code on a million movements beside the bare statements that they
// cannot do without.
//
//   lorvan-figures-bench [FOLDER]
//
// The book is that of lorvan-bench: it is made in FOLDER (default: lorvan-bench in TMPDIR) where it is missing, and
// kept. The file is in the system's memory after the first sample; each opens the book anew on both sides.

#include "bare_sql.h"
#include "book/book.h"
#include "book_generator.h"
#include "figures/book_picture.h"
#include "figures/code_card.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using namespace lorvan;
using namespace lorvan::bench;
using Clock = std::chrono::steady_clock;

constexpr int movements = 1'000'000;
constexpr int samples = 7;
constexpr int code = 101;
constexpr auto bareDays = "SELECT hmeromhnia, esoda, ejoda, ypoloipo FROM tameio";
constexpr auto bareSums = "SELECT kvdikos, hmeromhnia, esoda, ejoda, L_tajeos FROM kinhseis"
                          " WHERE kvdikos IN (SELECT kvdikos FROM kvdikoi)";
constexpr auto bareCode = "SELECT hmeromhnia, esoda, ejoda FROM kinhseis WHERE kvdikos=101 AND hmeromhnia>0";

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

template <typename Work>
void measure(const char* what, const char* floorSql, const BookFiles& files, const FileKey& key, const Work& work)
{
    std::vector<double> floor;
    std::vector<double> lorvan;
    for (int i = 0; i < samples; ++i) {
        const auto bareBegin = Clock::now();
        const BareConnection bare(files.mainDatabase(), key.engineText());
        (void)BareStatement(bare, floorSql).run();
        floor.push_back(millisecondsSince(bareBegin));
        const auto begin = Clock::now();
        Connection main = Connection::open(files.mainDatabase(), key);
        work(main);
        lorvan.push_back(millisecondsSince(begin));
    }
    std::printf("| %s | %.1f | %.1f | %.2f |\n", what, median(floor), median(lorvan), median(lorvan) / median(floor));
}

void run(const QString& folder)
{
    const BookFiles files(folder + QStringLiteral("/%1").arg(movements));
    QDir().mkpath(files.dataFolder());
    ensureBook(files, movements);
    KeyRing keys(bookPassword());
    const FileKey key = keys.keyFor(files.mainDatabase());
    const auto picture = [](PictureSubject subject, FigureStep step) {
        return [=](Connection& main) {
            (void)readBookPicture(main, {subject, spanWith(newestDay(), step), step != FigureStep::Year});
        };
    };
    std::printf("| 1 000 000 movements | floor, ms | lorvan, ms | ratio |\n|---|---|---|---|\n");
    measure("cash, ten years", bareDays, files, key, picture(PictureSubject::Cash, FigureStep::Year));
    measure("cash, months of two years", bareDays, files, key, picture(PictureSubject::Cash, FigureStep::Month));
    measure("groups, ten years", bareSums, files, key, picture(PictureSubject::Groups, FigureStep::Year));
    measure("largest codes, ten years", bareSums, files, key, picture(PictureSubject::Codes, FigureStep::Year));
    measure("card of a code", bareCode, files, key, [](Connection& main) { (void)readCodeCard(main, code); });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        run(QCoreApplication::arguments().value(1, QDir::tempPath() + QStringLiteral("/lorvan-bench")));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
