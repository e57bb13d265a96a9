#include "cashbook/movement_batch.h"

#include "cashbook/cash_book.h"
#include "cashbook/opening_balance.h"
#include "platform/engine/transaction.h"
#include "support/random_changes.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lorvan::test {
namespace {

constexpr auto whatIsStored = "SELECT group_concat(hmeromhnia || '|' || kvdikos || '|' || perigrafh || '|' || esoda"
                              " || '|' || ejoda || '|' || aa_omada || '|' || grammh || '|' || epitagh || '|' ||"
                              " L_tajeos, '/') FROM (SELECT * FROM kinhseis ORDER BY hmeromhnia, aa)";

/// A book that has been worked with, the same for the same seed; for odd seeds with an opening balance set in its
/// midst.
void workWith(TemporaryBook& temporary, unsigned seed)
{
    Book book = temporary.open();
    CashBook cashBook(book, {});
    RandomChanges changes(seed);
    for (int change = 0; change < 60; ++change)
        ASSERT_TRUE(std::holds_alternative<DayView>(makeChange(cashBook, changes.next(storedMovements(book.main())))));
    if (seed % 2 == 1) {
        Transaction counting(book.main());
        setOpeningBalance(book.main(), QDate(2024, 1, 10), cents(77'777));
        counting.commit();
    }
}

std::vector<MovementDraft> randomDrafts(unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<MovementDraft> drafts;
    for (int i = 0; i < 150; ++i) {
        const QDate day = QDate(2024, 1, 1).addDays(random() % 120); // also days that the book does not know
        const Currency amount = Currency::fromTenThousandths(random() % 9'000'000);
        drafts.push_back(random() % 2 == 0 ? incomeOf(day, amount) : expenseOf(day, amount));
        drafts.back().cheque = random() % 3 == 0;
        drafts.back().memorandum = cents(random() % 500);
    }
    return drafts;
}

void enterOneByOne(const TemporaryBook& temporary, const std::vector<MovementDraft>& drafts)
{
    Book book = temporary.open();
    CashBook cashBook(book, {});
    for (const MovementDraft& draft : drafts)
        ASSERT_TRUE(std::holds_alternative<DayView>(cashBook.insert(draft)));
}

qint64 enterAtOnce(const TemporaryBook& temporary, const std::vector<MovementDraft>& drafts)
{
    Book book = temporary.open();
    Transaction writing(book.main());
    MovementBatch batch(book.main(), book.auxiliary(), {});
    for (const MovementDraft& draft : drafts)
        EXPECT_FALSE(batch.add(draft));
    const qint64 repeated = batch.settle();
    writing.commit();
    return repeated;
}

} // namespace

TEST(MovementBatch, leavesTheBookAsTypingDoes)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        TemporaryBook typed;
        TemporaryBook batched;
        workWith(typed, seed);
        workWith(batched, seed);
        auto drafts = randomDrafts(seed);
        enterAtOnce(batched, drafts);
        std::stable_sort(drafts.begin(), drafts.end(), [](const auto& a, const auto& b) { return a.day < b.day; });
        enterOneByOne(typed, drafts);

        Connection expected = typed.openMain();
        Connection actual = batched.openMain();
        EXPECT_EQ(storedCashDays(actual), storedCashDays(expected)) << seed;
        EXPECT_EQ(valueOf(actual, whatIsStored), valueOf(expected, whatIsStored)) << seed;
    }
}

TEST(MovementBatch, sumsAsTheModelDoes)
{
    TemporaryBook book;
    workWith(book, 2);
    auto drafts = randomDrafts(9);
    for (MovementDraft& draft : drafts) { // the model knows cents
        draft.income = draft.income.roundedToCents();
        draft.expense = draft.expense.roundedToCents();
    }
    Connection main = book.openMain();
    const BookModel before(storedMovements(main));
    enterAtOnce(book, drafts);
    const BookModel after(storedMovements(main));
    EXPECT_EQ(after.movements().size(), before.movements().size() + drafts.size());
    auto expected = after.cashDays(); // the days that lost their last movement are not the model's to know
    auto stored = storedCashDays(main);
    std::erase_if(stored, [](const std::string& line) { return line.find(" 0 0 ") != std::string::npos; });
    std::erase_if(expected, [](const std::string& line) { return line.find(" 0 0 ") != std::string::npos; });
    EXPECT_EQ(stored, expected);
}

TEST(MovementBatch, tellsRepeatedMovementsAndRefusesWhatTypingRefuses)
{
    const QDate day(2024, 3, 15);
    const QDate closed(2024, 3, 14);
    TemporaryBook book;
    book.addCode(300, QStringLiteral("Παλιός"), true, 1, false);
    book.close(closed);
    MovementDraft inactive = incomeOf(day, cents(5));
    inactive.code = 300;
    EXPECT_EQ(enterAtOnce(book, {incomeOf(day, cents(5)), incomeOf(day, cents(5)), inactive}), 0);
    EXPECT_EQ(
        enterAtOnce(book, {incomeOf(day, cents(5)), incomeOf(day, cents(6)), expenseOf(day, cents(5)), inactive}), 2);

    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    MovementDraft unknown = incomeOf(day, cents(5));
    unknown.code = 999;
    MovementBatch batch(main, auxiliary, {});
    EXPECT_EQ(batch.add(incomeOf(closed, cents(1))), Refusal::DayIsClosed);
    EXPECT_EQ(batch.add(incomeOf(QDate(), cents(1))), Refusal::DateIsInvalid);
    EXPECT_EQ(batch.add(unknown), Refusal::CodeHasChanged);
    EXPECT_EQ(batch.add(incomeOf(day, cents(1), QStringLiteral(" "))), Refusal::NoDescription);
    EXPECT_FALSE(MovementBatch(main, auxiliary, {.modifyCash = true}).check(incomeOf(closed, cents(1))));
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kinhseis"), QStringLiteral("7"));
}

} // namespace lorvan::test
