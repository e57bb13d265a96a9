#include "proof/balance_proof.h"

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "proof/cash_day_findings.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <thread>
#include <utility>

namespace lorvan {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int rowsBetweenLooks = 16; // at the clock
constexpr milliseconds longestSleep{20};

enum Column { Row, Day, Income, Expense };
constexpr auto movementsFrom = "SELECT rowid, hmeromhnia, esoda, ejoda FROM kinhseis NOT INDEXED"
                               " WHERE rowid>? ORDER BY rowid";

/// Two equal ones mean that nobody has changed the file in between.
struct FileState {
    std::int64_t version = 0; ///< As the engine counts the changes of others, under a lock;
    FileWatch::State files = {}; ///< where locks are not trusted, the files themselves.

    friend bool operator==(const FileState&, const FileState&) = default;
};

FileState stateOf(Connection& main)
{
    if (const FileWatch* const watch = main.watch())
        return {0, watch->noted()};
    auto version = main.prepare("PRAGMA data_version");
    return {version.step() ? version.integer(0) : 0, {}};
}

void refuseStopped()
{
    if (!StopCheck::goesOn())
        throw SqlError(SQLITE_INTERRUPT, QStringLiteral("interrupted"), QString::fromLatin1(movementsFrom));
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
void waitForQuiet(Connection& main, const ProofPace& pace)
{
    std::optional<FileState> last;
    for (auto since = steady_clock::now(); steady_clock::now() - since < pace.quiet;) {
        readSteadily(main, [&] {
            const Transaction reading(main, Transaction::View::Steady);
            FileState now = stateOf(main);
            if (last != now)
                since = steady_clock::now();
            last = std::move(now);
        });
        sleepUnlessStopped(pace.betweenLooks);
    }
}

/// The sums of the movements of one slice.
struct Slice {
    SumsByDay sums;
    std::int64_t rows = 0;
    std::int64_t last = 0; ///< The row that was read last.
    bool isTooLarge = false; ///< A sum is out of range.
    bool isEnd = false;
};

void add(DaySums& sums, Currency income, Currency expense, bool& isTooLarge)
{
    try {
        sums.income += income;
        sums.expense += expense;
    } catch (const CurrencyOverflow&) {
        isTooLarge = true;
    }
}

Slice readSlice(Connection& main, std::int64_t after, milliseconds longest)
{
    const auto until = steady_clock::now() + longest;
    Slice slice;
    slice.last = after;
    DaySums* sums = nullptr; // of the day before, which mostly is this one's too
    std::int64_t day = 0;
    auto rows = main.prepare(movementsFrom);
    for (rows.bind(after); rows.step();) {
        slice.last = rows.integer(Row);
        if (rows.storedType(Day) == Statement::StoredType::Integer) {
            if (!sums || rows.integer(Day) != day)
                sums = &slice.sums[day = rows.integer(Day)]; // an unordered map does not move its values
            add(*sums, rows.currency(Income), rows.currency(Expense), slice.isTooLarge);
        }
        if (++slice.rows % rowsBetweenLooks == 0 && steady_clock::now() >= until)
            return slice;
    }
    slice.isEnd = true;
    return slice;
}

struct CashDays {
    std::vector<CashDayRow> rows;
    OpeningDifferences differences;
    BookFindings findings;
};

CashDays readAllCashDays(Connection& main)
{
    CashDays days;
    days.rows = readCashDays(main, days.findings);
    days.differences = openingDifferences(main);
    return days;
}

/// Everything that was read, from one state of the file.
struct Reading {
    Slice movements;
    CashDays days;
};

void addSlice(Slice& all, const Slice& slice)
{
    for (const auto& [day, sums] : slice.sums)
        add(all.sums[day], sums.income, sums.expense, all.isTooLarge);
    all.rows += slice.rows;
    all.last = slice.last;
    all.isTooLarge = all.isTooLarge || slice.isTooLarge;
    all.isEnd = slice.isEnd;
}

/// No value if somebody has changed the file meanwhile.
std::optional<Reading> readWhole(Connection& main, const ProofPace& pace)
{
    Reading whole;
    whole.movements.last = std::numeric_limits<std::int64_t>::min();
    std::optional<FileState> first;
    while (!whole.movements.isEnd) {
        Slice slice;
        FileState now;
        readSteadily(main, [&] {
            const Transaction reading(main, Transaction::View::Steady);
            now = stateOf(main);
            if (first && now != *first)
                return;
            slice = readSlice(main, whole.movements.last, pace.slice);
            if (slice.isEnd)
                whole.days = readAllCashDays(main);
        });
        if (!first)
            first = std::move(now);
        else if (now != *first)
            return std::nullopt;
        addSlice(whole.movements, slice);
        refuseStopped();
    }
    return whole;
}

Reading readUndisturbed(Connection& main, const ProofPace& pace)
{
    for (int begun = 0;; ++begun) {
        if (begun > pace.hurried)
            waitForQuiet(main, pace);
        if (auto whole = readWhole(main, pace))
            return std::move(*whole);
    }
}

bool isWrong(const AuditedDay& day)
{
    return !day.row || !day.repeatedKeys.empty() || day.sumsWrong || day.balanceWrong;
}

void compare(BalanceProof& proof, Reading reading)
{
    const CashDayAudit audit =
        auditCashDays(std::move(reading.days.rows), reading.movements.sums, reading.days.differences);
    proof.days = static_cast<std::int64_t>(audit.days.size());
    proof.wrongDays = std::count_if(audit.days.begin(), audit.days.end(), isWrong);
    proof.findings.merge(findingsOf(audit));
}

} // namespace

bool BalanceProof::isProved() const
{
    return findings.isInOrder() && findings.count(FindingKind::OpeningNotKept) == 0;
}

BalanceProof proveBalances(Connection& main, const ProofPace& pace)
{
    Reading reading = readUndisturbed(main, pace);
    BalanceProof proof;
    proof.movements = reading.movements.rows;
    proof.findings = std::move(reading.days.findings);
    try {
        if (reading.movements.isTooLarge)
            throw CurrencyOverflow();
        compare(proof, std::move(reading));
    } catch (const CurrencyOverflow&) {
        proof.findings.add({FindingKind::SumTooLarge});
    }
    return proof;
}

} // namespace lorvan
