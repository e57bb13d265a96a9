#include "bare_sql.h"
#include "benchmarks.h"
#include "book/lock_trust.h"
#include "book_generator.h"
#include "cashbook/day_seal.h"
#include "journal/journal.h"
#include "movements/journal_states.h"
#include "movements/movement_store.h"
#include "platform/engine/transaction.h"
#include "proof/balance_proof.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <thread>

namespace lorvan::bench {
namespace {

constexpr double proofTarget = 2;
constexpr double forTheDays = 1500; // microseconds: half a one for each of 3,000 days, which the floor does not compare
constexpr int samples = 5;
constexpr int daysAtOnce = 100;

constexpr auto movements = "SELECT rowid, aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh, L_tajeos"
                           " FROM kinhseis NOT INDEXED";
constexpr auto cashDays = "SELECT aa, hmeromhnia, esoda, ejoda, ypoloipo FROM tameio NOT INDEXED";
constexpr auto changes = "SELECT * FROM journal ORDER BY id";
constexpr auto seals = "SELECT * FROM seals ORDER BY id";

/// As if each movement had been entered with the journal.
void journalAll(Connection& book)
{
    const Authority authority = Authority::companion();
    Transaction writing(book, authority);
    forEachMovement(book, [&](const Movement& movement) {
        recordChange(book, authority,
            {JournalAction::Insert, journal_subject::movement(movement.key), movement.day, movement.code, {},
                journalState(movement)});
    });
    writing.commit();
}

/// How many milliseconds another program waits for the right to write, at most, while `work` goes on.
double longestWait(const BookFiles& files, KeyRing& keys, const std::function<void()>& work)
{
    using Clock = std::chrono::steady_clock;
    std::atomic<bool> isDone = false;
    double longest = 0;
    std::thread other([&] {
        Connection main = openBookFile(files.mainDatabase(), keys, Connection::Access::ReadWrite);
        while (!isDone) {
            const auto begin = Clock::now();
            main.execute("BEGIN IMMEDIATE; ROLLBACK");
            longest = std::max(longest, std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    work();
    isDone = true;
    other.join();
    return longest;
}

/// A hundred days in one transaction, as in the background.
void sealAll(Connection& book)
{
    while (sealOlderDays(book, Authority::sealing(), daysAtOnce) > 0)
        ;
}

struct SealBench {
    explicit SealBench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , bareSeals(files.auxiliaryDatabase(), keys.keyFor(files.auxiliaryDatabase()).engineText())
        , book(openBoth(files, keys, Connection::Access::ReadOnly))
        , readMovements(bare, movements)
        , readDays(bare, cashDays)
        , readChanges(bare, changes)
        , readSeals(bareSeals, seals)
    {
    }

    KeyRing keys;
    BareConnection bare;
    BareConnection bareSeals;
    Connection book;
    BareStatement readMovements;
    BareStatement readDays;
    BareStatement readChanges;
    BareStatement readSeals;
};

} // namespace

void ensureSealedBook(const BookFiles& files, int movements, bool isJournalled)
{
    ensureBook(files, movements);
    const QString sealed = files.dataFolder() + QStringLiteral("/sealed");
    if (QFile::exists(sealed))
        return;
    KeyRing keys(bookPassword());
    Connection book = openBoth(files, keys);
    if (isJournalled)
        journalAll(book);
    const double longest = longestWait(files, keys, [&book] { sealAll(book); });
    std::printf("Another program waited %.1f ms at most while days were sealed\n", longest);
    QFile mark(sealed);
    (void)mark.open(QIODevice::WriteOnly);
}

std::vector<Comparison> sealBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<SealBench>(files);
    return {{QStringLiteral("balances and seals proved, whole book"), {[bench] {
                 bench->readMovements.run();
                 bench->readDays.run();
                 bench->readSeals.run();
                 bench->readChanges.run();
             }},
        {[bench] { (void)proveBalancesAndSeals(bench->book); }}, proofTarget, samples, forTheDays}};
}

} // namespace lorvan::bench
