#include "platform/engine/sliced_reading.h"

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"

#include <sqlite3.h>

#include <algorithm>
#include <optional>
#include <thread>
#include <utility>

namespace lorvan {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds longestSleep{20};

void refuseStopped()
{
    if (!StopCheck::goesOn())
        throw SqlError(SQLITE_INTERRUPT, QStringLiteral("interrupted"), QStringLiteral("reading in slices"));
}

void sleepUnlessStopped(milliseconds time)
{
    const auto until = steady_clock::now() + time;
    while (steady_clock::now() < until) {
        refuseStopped();
        std::this_thread::sleep_for(std::min(time, longestSleep));
    }
}

/// Returns when nothing has been changed for a while.
void waitForQuiet(Connection& book, const SlicePace& pace)
{
    std::optional<FileState> last;
    for (auto since = steady_clock::now(); steady_clock::now() - since < pace.quiet;) {
        readSteadily(book, [&] {
            const Transaction reading(book, Transaction::View::Steady);
            FileState now = stateOf(book);
            if (last != now)
                since = steady_clock::now();
            last = std::move(now);
        });
        sleepUnlessStopped(pace.betweenLooks);
    }
}

/// No value if somebody has changed the files meanwhile, or disturbed a slice.
std::optional<FileState> readWhole(Connection& book, const SlicePace& pace, const ReadSlice& readSlice)
{
    std::optional<FileState> first;
    for (bool isEnd = false; !isEnd;) {
        int attempts = 0;
        FileState now;
        readSteadily(book, [&] {
            const Transaction reading(book, Transaction::View::Steady);
            now = stateOf(book);
            if (++attempts == 1 && (!first || now == *first))
                isEnd = readSlice(steady_clock::now() + pace.slice);
        });
        if (attempts > 1 || (first && now != *first))
            return std::nullopt;
        if (!first)
            first = std::move(now);
        refuseStopped();
    }
    return first;
}

} // namespace

FileState stateOf(Connection& book)
{
    if (const FileWatch* const watch = book.watch())
        return {{}, watch->noted()};
    FileState state;
    auto databases = book.prepare("PRAGMA database_list");
    while (databases.step()) {
        auto version = book.prepare("PRAGMA " + databases.text(1).toStdString() + ".data_version");
        state.versions.push_back(version.step() ? version.integer(0) : 0);
    }
    return state;
}

FileState readInSlices(Connection& book, const SlicePace& pace, const std::function<ReadSlice()>& begin)
{
    for (int begun = 0;; ++begun) {
        if (begun > pace.hurried)
            waitForQuiet(book, pace);
        if (auto state = readWhole(book, pace, begin()))
            return std::move(*state);
    }
}

} // namespace lorvan
