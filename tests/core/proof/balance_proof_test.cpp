#include "cashbook/cash_book.h"
#include "cashbook/journal_keeping.h"
#include "platform/engine/sql_error.h"
#include "platform/files/mount_table.h"
#include "platform/files/settings_store.h"
#include "platform/stop_check.h"
#include "proof/balance_proof.h"
#include "proof/book_repair.h"
#include "proof/last_proof.h"
#include "proof/proof_texts.h"
#include "proof/trail_acceptance.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

using namespace std::chrono_literals;

/// Sixty days from 1 March 2024 on, each with an income of 1,00.
constexpr auto soundBook = R"(
    WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<59)
        INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos)
        SELECT 100, 20240301+i%30+i/30*100, 10000, 0, 1, 0, 0 FROM n;
    INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo)
        SELECT hmeromhnia, 10000, 0, 10000*aa FROM kinhseis;)";

constexpr ProofPace smallSlices{.slice = 0ms, .quiet = 150ms, .betweenLooks = 10ms};

/// Calls `change` between two slices, as often as it is told, and counts the proof's beginnings.
BalanceProof proveBeside(Connection& main, int changes, const std::function<void()>& change)
{
    int looks = 0;
    const StopCheck beside([&] {
        if (looks++ % 2 == 1 && changes-- > 0)
            change();
        return true;
    });
    return main.knowsTable("seals") ? proveBalancesAndSeals(main, smallSlices) : proveBalances(main, smallSlices);
}

/// Movements on two sealed days and on an open one.
void enterAndClose(Book& book)
{
    keepJournal(book.main(), book.auxiliary());
    const Authority all = byAll();
    CashBook cashBook(book, all);
    for (int i = 0; i < 40; ++i)
        (void)cashBook.insert(incomeOf(QDate(2024, 3, 1 + i % 3), cents(100)));
    cashBook.close(QDate(2024, 3, 1));
    cashBook.close(QDate(2024, 3, 2));
}

} // namespace

TEST(BalanceProof, tellsEachDamageInPlainWords)
{
    const std::pair<std::string, const char*> cases[] = {
        {"", ""},
        {"UPDATE tameio SET ypoloipo=ypoloipo+400000 WHERE hmeromhnia=20240312",
            "Το υπόλοιπο της 12-03-2024 διαφέρει από τις κινήσεις κατά 40,00"},
        {"UPDATE tameio SET ypoloipo=ypoloipo-123400 WHERE hmeromhnia IN (20240312, 20240405);"
         "UPDATE tameio SET esoda=5 WHERE hmeromhnia=20240301",
            "Το υπόλοιπο της 12-03-2024 διαφέρει από τις κινήσεις κατά 12,34, και 2 ακόμη ημέρες"},
        {"UPDATE tameio SET ypoloipo='x' WHERE hmeromhnia=20240312",
            "Το υπόλοιπο της 12-03-2024 είναι γραμμένο σε μορφή που δεν είναι ποσό"},
        {"UPDATE tameio SET ejoda=5 WHERE hmeromhnia IN (20240312, 20240313)",
            "Τα σύνολα της 12-03-2024 διαφέρουν από τις κινήσεις της, και 1 ακόμη ημέρα"},
        {"DELETE FROM tameio WHERE hmeromhnia=20240312",
            "Η 12-03-2024 έχει κινήσεις, αλλά λείπει από τις ημέρες του ταμείου"},
        {"INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) SELECT hmeromhnia, esoda, ejoda, ypoloipo FROM tameio"
         " WHERE hmeromhnia=20240312",
            "Η 12-03-2024 είναι γραμμένη 2 φορές στο ταμείο"},
        {"INSERT INTO tameio (hmeromhnia) VALUES (NULL)", "Στο ταμείο υπάρχει ημέρα χωρίς έγκυρη ημερομηνία"},
        {"UPDATE tameio SET ypoloipo=ypoloipo-700 WHERE hmeromhnia>=20240405",
            "Από 05-04-2024 τα υπόλοιπα έχουν 0,07 λιγότερα από τις κινήσεις"},
        {"UPDATE kinhseis SET esoda=9223372036854775807 WHERE hmeromhnia<20240303",
            "Τα ποσά των κινήσεων ξεπερνούν όσα χωρά το ταμείο και τα υπόλοιπα δεν ελέγχθηκαν"},
    };
    for (const auto& [damage, told] : cases) {
        const TemporaryBook book;
        book.execute(soundBook + damage);
        Connection main = book.openMain();
        for (const ProofPace& pace : {ProofPace(), smallSlices}) {
            const BalanceProof proof = proveBalances(main, pace);
            const auto notice = proofNotice(proof);
            EXPECT_EQ(notice ? notice->text : QString(), told);
            EXPECT_EQ(proof.isProved(), damage.empty()) << damage;
            EXPECT_EQ(proof.movements, 60);
        }
    }
}

TEST(BalanceProof, tellsWhatSealsAndJournalContradict)
{
    struct Case {
        const char* main;
        const char* auxiliary;
        const char* told;
    };
    for (const Case& each : {Case{"", "", ""},
             {"UPDATE kinhseis SET perigrafh='x' WHERE aa IN (2, 4)", "",
                 "Η σφραγισμένη ημέρα 01-03-2024 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση, και 1 ακόμη ημέρα"},
             {"", "DELETE FROM klhsimotameioy WHERE hmeraklhsimatos=20240302",
                 "Η σφραγισμένη ημέρα 02-03-2024 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση"},
             {"", "UPDATE seals SET balance=1 WHERE id=2",
                 "Η σφραγίδα της 02-03-2024 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση"},
             {"", "DELETE FROM seals WHERE id=2",
                 "Η σφραγίδα της 02-03-2024 λείπει: κάτι άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση"},
             {"UPDATE journal SET user='x' WHERE id=20", "",
                 "Το ημερολόγιο άλλαξε στην εγγραφή 20 από άλλο πρόγραμμα ή παλαιότερη έκδοση"},
             {"DELETE FROM journal WHERE id=(SELECT max(id) FROM journal)", "",
                 "Η εγγραφή της σφραγίδας της 02-03-2024 λείπει από το ημερολόγιο"}}) {
        const TemporaryBook temporary;
        Book book = temporary.open();
        enterAndClose(book);
        book.main().execute(each.main);
        book.auxiliary().execute(each.auxiliary);
        Connection both = book.openBoth();
        for (const ProofPace& pace : {ProofPace(), smallSlices}) {
            const BalanceProof proof = proveBalancesAndSeals(both, pace);
            const auto notice = proofNotice(proof);
            EXPECT_EQ(notice ? notice->text : QString(), each.told);
            EXPECT_EQ(std::tuple(proof.movements, proof.days), std::tuple(40, 3));
        }
        (void)acceptFaults(both, byAll());
        EXPECT_TRUE(proveBalancesAndSeals(both).isProved()) << each.told;
    }
}

TEST(BalanceProof, guessesNoOpeningBalanceWhereTheJournalTellsOfNone)
{
    const TemporaryBook temporary;
    Book book = temporary.open();
    enterAndClose(book);
    book.main().execute("UPDATE tameio SET ypoloipo=ypoloipo+500");
    Connection both = book.openBoth();
    const BalanceProof proof = proveBalancesAndSeals(both);
    EXPECT_EQ(proof.findings.count(FindingKind::DayBalance), 3);
    EXPECT_EQ(proof.findings.byKind().at(FindingKind::CarryAltered).first.at(0).day, 20240302);
    const BookRepair repair = repairBook(both, temporary.files(), testKeys(), byAll(), [](auto, auto) {});
    EXPECT_EQ(repair.keptDifferences, 0);
    EXPECT_EQ(valueOf(both, "SELECT group_concat(subject || before || after) FROM journal WHERE action='correct'"),
        R"(day/20240301{"ejoda":0,"esoda":140000,"ypoloipo":140500}{"ejoda":0,"esoda":140000,"ypoloipo":140000},)"
        R"(day/20240302{"ejoda":0,"esoda":130000,"ypoloipo":270500}{"ejoda":0,"esoda":130000,"ypoloipo":270000},)"
        R"(day/20240303{"ejoda":0,"esoda":130000,"ypoloipo":400500}{"ejoda":0,"esoda":130000,"ypoloipo":400000})");
    EXPECT_TRUE(proveBalancesAndSeals(both).isProved());
}

TEST(BalanceProof, readsBothFilesInOneState)
{
    const TemporaryBook temporary;
    Book book = temporary.open();
    enterAndClose(book);
    Connection both = book.openBoth();
    const BalanceProof proof = proveBeside(both, 1, [&] { book.auxiliary().execute("DELETE FROM seals WHERE id=2"); });
    EXPECT_EQ(proof.seals, 1);
    EXPECT_EQ(proof.findings.count(FindingKind::SealMissing), 1);
}

TEST(BalanceProof, aCorrectionOfAMissingDayIsToldAsSuch)
{
    EXPECT_EQ(correctionText({QDate(2024, 3, 12), std::nullopt, {cents(500), {}, cents(700)}}),
        "Η 12-03-2024 έλειπε από τις ημέρες του ταμείου και γράφτηκε: υπόλοιπο 7,00");
}

TEST(BalanceProof, beginsAgainAfterAChangeAndAfterManyWaitsForQuiet)
{
    for (const int changes : {1, 3, 4, 6}) {
        const TemporaryBook book;
        book.execute(soundBook);
        Connection main = book.openMain();
        Connection other = book.openMain();
        const auto began = std::chrono::steady_clock::now();
        const BalanceProof proof = proveBeside(main, changes, [&] {
            other.execute(
                "INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, aa_omada) VALUES (100, 20240430, 0, 0, 1)");
        });
        EXPECT_EQ(proof.movements, 60 + changes) << "one state, the last";
        EXPECT_TRUE(proof.isProved());
        EXPECT_EQ(std::chrono::steady_clock::now() - began >= smallSlices.quiet, changes > 3) << changes;
    }
}

TEST(BalanceProof, holdsNobodyUpAndStopsWhenTold)
{
    const TemporaryBook book;
    book.execute(soundBook);
    Connection main = book.openMain();
    Connection writer = book.openMain();
    writer.setBusyTimeout(0ms);
    EXPECT_NO_THROW((void)proveBeside(main, 1, [&] { writer.execute("UPDATE kvdikoi SET energos=-1"); }));

    const StopCheck stop([] { return false; });
    try {
        (void)proveBalances(main, smallSlices);
        ADD_FAILURE() << "went on";
    } catch (const SqlError& error) {
        EXPECT_EQ(error.kind(), SqlError::Kind::Interrupted);
    }
}

TEST(LastProof, isRememberedForEachBookAndSparesANetwork)
{
    const TemporaryBook book;
    const TemporaryBook other;
    const SettingsStore settings(book.path("Lorvan.ini"));
    const QDateTime noon = fixedClock().now();
    EXPECT_EQ(lastProof(settings, book.files()), std::nullopt);
    rememberProof(settings, book.files(), {noon, 1'234'567, 250, 17});
    EXPECT_EQ(lastProof(settings, book.files()), (LastProof{noon, 1'234'567, 250, 17}));
    EXPECT_EQ(lastProof(settings, other.files()), std::nullopt);

    const std::tuple<bool, std::optional<int>, bool> cases[] = {{false, {}, true}, {false, 1, true}, {true, {}, true},
        {true, 0, false}, {true, 11, false}, {true, 12, true}, {true, -1, true}};
    for (const auto& [isOnNetwork, hoursAgo, proves] : cases) {
        const auto last = hoursAgo ? std::optional(LastProof{noon.addSecs(-*hoursAgo * 3600)}) : std::nullopt;
        EXPECT_EQ(provesUnasked(isOnNetwork, last, noon), proves) << hoursAgo.value_or(0);
    }
    for (const auto& [line, isRemote] :
        {std::pair("1 0 0:5 / /books rw - nfs4 srv:/x rw", true), {"1 0 0:5 / /books rw - cifs //srv/x rw", true},
            {"1 0 8:1 / / rw - ext4 /dev/sda1 rw", false}, {"1 0 0:5 / /other rw - nfs srv:/x rw", false}})
        EXPECT_EQ(isOnNetwork(mountOf(line, "/books/shop")), isRemote) << line;
}

} // namespace lorvan::test
