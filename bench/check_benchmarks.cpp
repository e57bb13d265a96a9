#include "benchmarks.h"

#include "bare_sql.h"
#include "platform/engine/connection.h"
#include "proof/balance_proof.h"
#include "proof/book_check.h"

#include <memory>

namespace lorvan::bench {
namespace {

constexpr double checkTarget = 3;
constexpr double proofTarget = 1.3;
constexpr double forTheDays = 1500; // microseconds: half a one for each of 3,000 days, which the floor does not compare
constexpr int samples = 5;

/// The columns that the check needs, of both tables, in the order in which they are stored.
constexpr auto movements = "SELECT aa, kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos"
                           " FROM kinhseis NOT INDEXED";
constexpr auto amounts = "SELECT rowid, hmeromhnia, esoda, ejoda FROM kinhseis NOT INDEXED";
constexpr auto cashDays = "SELECT aa, hmeromhnia, esoda, ejoda, ypoloipo FROM tameio NOT INDEXED";

struct CheckBench {
    explicit CheckBench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , book(Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite))
        , readMovements(bare, movements)
        , readAmounts(bare, amounts)
        , readDays(bare, cashDays)
    {
        const QString auxiliary = files.auxiliaryDatabase();
        book.attach(auxiliary, keys.keyFor(auxiliary), QStringLiteral("auxiliary"));
    }

    KeyRing keys;
    BareConnection bare;
    Connection book;
    BareStatement readMovements;
    BareStatement readAmounts;
    BareStatement readDays;
};

} // namespace

std::vector<Comparison> checkBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<CheckBench>(files);
    return {
        {QStringLiteral("check, whole book"), {[bench] {
             bench->readMovements.run();
             bench->readDays.run();
         }},
            {[bench] { (void)checkContent(bench->book, [](std::int64_t, std::int64_t) {}); }}, checkTarget, samples},
        {QStringLiteral("balances proved, whole book"), {[bench] {
             bench->readAmounts.run();
             bench->readDays.run();
         }},
            {[bench] { (void)proveBalances(bench->book); }}, proofTarget, samples, forTheDays}};
}

} // namespace lorvan::bench
