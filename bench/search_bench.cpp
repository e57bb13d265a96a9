// Measures a search through a million movements beside one bare pass over the same columns.
//
//   lorvan-search-bench [FOLDER]
//
// The book is that of lorvan-bench: it is made in FOLDER (default: lorvan-bench in TMPDIR) where it is missing, and
// kept. Each sample opens the book anew on both sides. The search's time includes putting what is found at its place,
// which the program does in another thread.

#include "bare_sql.h"
#include "book/book.h"
#include "book_generator.h"
#include "search/movement_search.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace {

using namespace lorvan;
using namespace lorvan::bench;
using Clock = std::chrono::steady_clock;

constexpr int movements = 1'000'000;
constexpr int samples = 7;
constexpr double target = 1.5;
constexpr auto barePass = "SELECT aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh FROM kinhseis";

struct Sample {
    double first = 0; ///< Milliseconds until the first hits are in their place, or the end.
    double whole = 0;
    double longestSlice = 0;
    std::int64_t found = 0;
};

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double bare(const BookFiles& files, const QByteArray& key)
{
    const auto begin = Clock::now();
    const BareConnection connection(files.mainDatabase(), key);
    (void)BareStatement(connection, barePass).run();
    return millisecondsSince(begin);
}

Sample search(const BookFiles& files, const FileKey& key, const char* typed)
{
    Sample sample;
    const auto begin = Clock::now();
    Connection main = Connection::open(files.mainDatabase(), key);
    MovementSearch search(readSearch(QString::fromUtf8(typed), newestDay()));
    SearchHits hits;
    while (!search.isAtEnd()) {
        const auto sliceBegin = Clock::now();
        SearchBatch batch = search.readOn(main);
        sample.longestSlice = std::max(sample.longestSlice, millisecondsSince(sliceBegin));
        hits.add(std::move(batch));
        if (sample.first == 0 && hits.totals().count > 0)
            sample.first = millisecondsSince(begin);
    }
    sample.whole = millisecondsSince(begin);
    sample.found = hits.totals().count;
    return sample;
}

void measure(const char* typed, const BookFiles& files, KeyRing& keys)
{
    const FileKey key = keys.keyFor(files.mainDatabase());
    std::vector<double> floor;
    std::vector<double> first;
    std::vector<double> whole;
    Sample last;
    double longest = 0;
    for (int i = 0; i < samples; ++i) {
        floor.push_back(bare(files, key.engineText()));
        last = search(files, key, typed);
        first.push_back(last.first);
        whole.push_back(last.whole);
        longest = std::max(longest, last.longestSlice);
    }
    const double ratio = median(whole) / median(floor);
    std::printf("| `%s` | %.1f | %.1f | %.1f | %.2f | %lld | %.1f |%s\n", typed, median(floor), median(first),
        median(whole), ratio, static_cast<long long>(last.found), longest, ratio > target ? " MISSED" : "");
}

void run(const QString& folder)
{
    const BookFiles files(folder + QStringLiteral("/%1").arg(movements));
    QDir().mkpath(files.dataFolder());
    ensureBook(files, movements);
    KeyRing keys(bookPassword());
    std::printf("| typed | bare pass | first hits | through | ratio | found | longest slice |\n"
                "|---|---|---|---|---|---|---|\n");
    for (const char* const typed : {"τιμολόγιο 9876", "πελατη 987", "άλλο", "214,67", ">499", "κωδ 105", "11/2023",
             "έξοδα επιταγή", "έξοδα", "πελατη"})
        measure(typed, files, keys);
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
