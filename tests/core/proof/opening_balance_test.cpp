#include "book/book_schema.h"
#include "book/opening_balance_rules.h"
#include "book/schema_upgrade.h"
#include "cashbook/cash_book.h"
#include "cashbook/journal_keeping.h"
#include "proof/book_repair.h"
#include "proof/opening_balance.h"
#include "proof/trail_audit.h"
#include "support/book_model.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

/// Of 11, 12 and 15 March 2024, as a release has left it that kept no opening differences.
constexpr auto earlierBook = R"(
    DROP TABLE opening_difference; DROP TABLE journal;
    INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda) VALUES
        (100, 20240311, 'α', 10000, 0), (200, 20240312, 'β', 0, 3000), (100, 20240315, 'γ', 500, 0);
    INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES
        (20240311, 10000, 0, 10000), (20240312, 0, 3000, 7000), (20240315, 500, 0, 7500);
)";

QString actionsIn(Connection& main)
{
    return valueOf(main, "SELECT group_concat(action) FROM journal");
}

} // namespace

TEST(OpeningBalance, ofAnEarlierReleaseIsKeptWhereNoOtherReasonIsPossible)
{
    const struct {
        const char* what;
        const char* then;
        const char* differences;
    } cases[] = {
        {"nothing", "", ""},
        {"an answer for the 12th", "UPDATE tameio SET ypoloipo=ypoloipo+500 WHERE hmeromhnia>20240311", "20240312 500"},
        {"for the first day", "UPDATE tameio SET ypoloipo=ypoloipo-500", "20240311 -500"},
        {"for days that were there", "UPDATE tameio SET ypoloipo=50000 WHERE hmeromhnia>20240311",
            "20240312 43000,20240315 -500"},
        {"and one of them looked at",
            "UPDATE tameio SET ypoloipo=50000; UPDATE tameio SET ypoloipo=47000 WHERE hmeromhnia=20240312",
            "20240311 40000,20240315 2500"},
        {"a balance changed", "UPDATE tameio SET ypoloipo=0 WHERE hmeromhnia=20240312", ""},
        {"and sums changed",
            "UPDATE tameio SET ypoloipo=ypoloipo+500 WHERE hmeromhnia>20240311; UPDATE tameio SET esoda=1", ""},
        {"and a row missing",
            "UPDATE tameio SET ypoloipo=ypoloipo+500 WHERE hmeromhnia>20240311; DELETE FROM tameio WHERE aa=1", ""},
        {"an older version", "UPDATE tameio SET ypoloipo=ypoloipo+500; UPDATE taytothta SET ariumos=2", ""},
        {"balances too far apart", "UPDATE tameio SET ypoloipo=-9223372036854775807 WHERE hmeromhnia>20240311", ""},
    };
    for (const auto& [what, then, differences] : cases) {
        const TemporaryBook folder;
        folder.execute(std::string(earlierBook) + then);
        folder.close(QDate(2024, 3, 11));
        Book book = folder.open();
        const CashDayLines before = storedCashDays(book.main());
        ensureMainSchema(book.main(), book.auxiliary(), openingSteps());
        EXPECT_EQ(valueOf(book.main(), "SELECT coalesce(group_concat(day||' '||amount), '') FROM opening_difference"),
            differences)
            << what;
        keepJournal(book.main(), book.auxiliary());
        EXPECT_EQ(actionsIn(book.main()), *differences == '\0' ? "begin" : "begin,opening") << what;
        CashBook cashBook(book, by());
        for (const int day : {15, 12, 11}) {
            if (*differences != '\0')
                (void)cashBook.showDay(QDate(2024, 3, day), DayRow::Write);
        }
        EXPECT_EQ(storedCashDays(book.main()), before) << what;
    }
}

TEST(OpeningBalance, theJournalBeginsBeforeARepairOrAnUpgradeTellsOfIt)
{
    for (const bool isUpgrade : {false, true}) {
        const TemporaryBook folder;
        folder.execute(earlierBook);
        folder.execute("UPDATE tameio SET ypoloipo=ypoloipo+500, esoda=1 WHERE aa>1");
        folder.close(QDate(2024, 3, 11));
        Book book = folder.open();
        Connection both = book.openBoth();
        if (isUpgrade) {
            folder.execute("UPDATE taytothta SET ariumos=2");
            upgradeSchema(book.main(), book.auxiliary(), byAll(), {QDate(2024, 3, 12), {}}, openingSteps());
        } else {
            (void)repairBook(both, folder.files(), testKeys(), byAll(), [](std::int64_t, std::int64_t) {});
        }
        book.ensureSchema(openingSteps());
        EXPECT_EQ(actionsIn(book.main()), isUpgrade ? "begin,opening" : "begin,correct,correct,repair,opening");
        EXPECT_TRUE(auditTrail(both).faults.empty());
    }
}

TEST(OpeningBalance, isLookedForOnceAndNotMissedWhereTheBookKeepsNone)
{
    const TemporaryBook folder;
    folder.execute(earlierBook);
    Book book = folder.open();
    CashBook cashBook(book, by());
    EXPECT_EQ(cashBook.showDay(QDate(2024, 3, 15), DayRow::Write).carried.balance.tenThousandths(), 7000);
    ensureMainSchema(book.main(), book.auxiliary(), openingSteps());
    book.main().execute("UPDATE tameio SET ypoloipo=ypoloipo+500 WHERE hmeromhnia>20240311; DROP TABLE taken_imports");
    ensureMainSchema(book.main(), book.auxiliary(), openingSteps());
    EXPECT_EQ(valueOf(book.main(), "SELECT count(*) FROM opening_difference"), "0");
}

TEST(OpeningBalance, isReadFromTheTwoAnswers)
{
    const auto read = [](const QString& day, const QString& amount) {
        return readOpeningBalance(day, amount, fixedClock().today());
    };
    const std::pair<const char*, Currency> amounts[] = {{"1500,50", cents(150'050)}, {"-1,5", cents(-150)}, {"  ", {}}};
    for (const auto& [text, amount] : amounts) {
        EXPECT_EQ(std::get<OpeningBalance>(read("5-12-2005", text)).day, QDate(2005, 12, 5));
        EXPECT_EQ(std::get<OpeningBalance>(read("5-12-2005", text)).amount, amount);
    }
    for (const char* day : {"31-02-2005", ""})
        EXPECT_EQ(std::get<OpeningBalanceFault>(read(day, "x")), OpeningBalanceFault::DateIsInvalid);
    for (const char* amount : {"1,2,3", "1000000000000000"})
        EXPECT_EQ(std::get<OpeningBalanceFault>(read("5-12-2005", amount)), OpeningBalanceFault::AmountIsNoNumber);
}

} // namespace lorvan::test
