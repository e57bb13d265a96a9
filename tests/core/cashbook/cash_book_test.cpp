#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "platform/engine/sql_error.h"
#include "support/book_model.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);
const QDate wednesday(2024, 3, 13);
const QDate friday(2024, 3, 15);

class CashBookTest : public testing::Test {
protected:
    DayView made(const ChangeOutcome& outcome)
    {
        const auto* const view = std::get_if<DayView>(&outcome);
        EXPECT_TRUE(view) << "refused: " << static_cast<int>(std::get<Refusal>(outcome));
        return view ? *view : DayView{};
    }

    static std::optional<Refusal> refusalOf(const ChangeOutcome& outcome)
    {
        const auto* const refusal = std::get_if<Refusal>(&outcome);
        return refusal ? std::optional(*refusal) : std::nullopt;
    }

    qint64 inserted(const MovementDraft& draft) { return made(cashBook.insert(draft)).movements.back().key; }

    [[nodiscard]] CashDayLines days() { return storedCashDays(open.main()); }

    TemporaryBook book;
    Book open = book.open();
    CashBook cashBook{open, {}};
};

} // namespace

TEST_F(CashBookTest, anInsertMovesEveryLaterDayAndNoEarlierOne)
{
    (void)inserted(incomeOf(monday, cents(1000)));
    EXPECT_EQ(days(), (CashDayLines{"20240311 1000 0 1000"}));
    (void)inserted(expenseOf(friday, cents(300)));
    EXPECT_EQ(days(), (CashDayLines{"20240311 1000 0 1000", "20240315 0 300 700"}));

    const DayView view = made(cashBook.insert(incomeOf(wednesday, cents(10'000))));
    EXPECT_EQ(days(), (CashDayLines{"20240311 1000 0 1000", "20240313 10000 0 11000", "20240315 0 300 10700"}));
    EXPECT_EQ(view.carried.fromDay, monday);
    EXPECT_EQ(view.carried.balance, cents(1000));
    EXPECT_EQ(view.figures.closingBalance, cents(11'000));
}

TEST_F(CashBookTest, aMovementKeepsItsDayWhateverTheDraftSays)
{
    const qint64 key = inserted(incomeOf(monday, cents(5000)));
    const DayView view = made(cashBook.modify(key, incomeOf(friday, cents(100))));
    EXPECT_EQ(view.day, monday);
    EXPECT_EQ(days(), (CashDayLines{"20240311 100 0 100"}));
}

TEST_F(CashBookTest, showingADayRebuildsItsRowAndShiftsNothing)
{
    book.addMovementRow(incomeOf(monday, cents(900)));
    book.execute("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240315, 1, 1, 5)");
    (void)cashBook.showDay(monday, DayRow::LeaveAlone);
    EXPECT_EQ(days(), (CashDayLines{"20240315 1! 1! 5!"}));
    (void)cashBook.showDay(monday, DayRow::Write);
    EXPECT_EQ(days(), (CashDayLines{"20240311 900 0 900", "20240315 1! 1! 5!"}));

    const DayView empty = cashBook.showDay(wednesday, DayRow::Write);
    EXPECT_EQ(empty.figures.closingBalance, cents(900));
    EXPECT_EQ(days().size(), 2U) << "a day without movements gets no row";
}

TEST_F(CashBookTest, aRowThatIsRightIsNotWrittenAgain)
{
    (void)inserted(incomeOf(monday, cents(900)));
    Connection writer = book.openMain();
    const QString before = valueOf(writer, "PRAGMA data_version");
    (void)cashBook.showDay(monday, DayRow::Write);
    EXPECT_EQ(valueOf(writer, "PRAGMA data_version"), before);
}

TEST_F(CashBookTest, movementsStandInTheOrderOfTheirEntryAndAreStoredWhole)
{
    const QString awkward = QStringLiteral("  O'Neil \"50%\" -- ") + QString(10'000, u'ω') + u' ';
    MovementDraft first = incomeOf(monday, cents(1), awkward);
    first.memorandum = cents(77);
    first.cheque = true;
    const qint64 key = inserted(first);
    (void)inserted(expenseOf(monday, cents(2)));
    const DayView view = cashBook.showDay(monday, DayRow::LeaveAlone);
    ASSERT_EQ(view.movements.size(), 2U);
    EXPECT_EQ(view.movements[0].key, key);
    EXPECT_EQ(view.movements[0].description, awkward.trimmed());
    EXPECT_EQ(view.movements[0].memorandum, cents(77));
    EXPECT_TRUE(view.movements[0].cheque);
    EXPECT_FALSE(view.movements[1].cheque);
    EXPECT_EQ(
        valueOf(open.main(), "SELECT aa_omada || ' ' || epitagh FROM kinhseis ORDER BY aa"), QStringLiteral("1 -1"));
    EXPECT_EQ(valueOf(open.main(), "SELECT grammh FROM kinhseis ORDER BY aa DESC"), storedLine(view.movements[1]));

    const auto found = cashBook.find(key);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->description, awkward.trimmed());
    EXPECT_EQ(found->income, cents(1));
    EXPECT_FALSE(cashBook.find(key + 100));
}

TEST_F(CashBookTest, refusesInTheOrderOfTheChecksAndWritesNothing)
{
    book.addCode(300, QStringLiteral("Παλιός"), true, 0, false);
    const qint64 key = inserted(incomeOf(monday, cents(5)));
    const CashDayLines before = days();
    const MovementDraft good = incomeOf(monday, cents(1));
    const auto with = [&good](auto change) {
        MovementDraft draft = good;
        change(draft);
        return draft;
    };
    const struct {
        MovementDraft draft;
        Refusal refusal;
    } cases[] = {
        {MovementDraft{}, Refusal::DateIsInvalid},
        {with([](auto& d) { d.code = 0, d.description.clear(); }), Refusal::NoCode},
        {with([](auto& d) { d.code = 999, d.description.clear(); }), Refusal::CodeHasChanged},
        {with([](auto& d) { d.code = 300; }), Refusal::CodeHasChanged},
        {with([](auto& d) { d.description = QStringLiteral("  "); }), Refusal::NoDescription},
    };
    for (const auto& [draft, refusal] : cases) {
        EXPECT_EQ(cashBook.check(draft), refusal);
        EXPECT_EQ(refusalOf(cashBook.insert(draft)), refusal);
        EXPECT_EQ(refusalOf(cashBook.modify(key, draft)), refusal);
    }
    EXPECT_EQ(cashBook.check(good), std::nullopt);
    EXPECT_EQ(refusalOf(cashBook.modify(key + 100, good)), Refusal::MovementIsGone);
    EXPECT_EQ(refusalOf(cashBook.remove(key + 100)), Refusal::MovementIsGone);
    EXPECT_EQ(days(), before);
    EXPECT_EQ(storedMovements(open.main()).size(), 1U);
}

TEST_F(CashBookTest, aClosedDayIsClosedToThoseWithoutTheRight)
{
    const qint64 key = inserted(incomeOf(monday, cents(5)));
    EXPECT_TRUE(closeDay(open.auxiliary(), monday));
    EXPECT_FALSE(closeDay(open.auxiliary(), monday));
    EXPECT_EQ(valueOf(open.auxiliary(), "SELECT count(*) FROM klhsimotameioy"), QStringLiteral("1"));
    EXPECT_TRUE(cashBook.isDayClosed(monday));
    EXPECT_FALSE(cashBook.isDayClosed(friday));

    MovementDraft elsewhere = incomeOf(friday, cents(1)); // an open day does not open the movement's own
    EXPECT_EQ(refusalOf(cashBook.insert(incomeOf(monday, cents(1)))), Refusal::DayIsClosed);
    EXPECT_EQ(refusalOf(cashBook.modify(key, elsewhere)), Refusal::DayIsClosed);
    EXPECT_EQ(refusalOf(cashBook.remove(key)), Refusal::DayIsClosed);
    EXPECT_FALSE(cashBook.mayChange(monday));
    EXPECT_TRUE(cashBook.mayChange(friday));
    EXPECT_EQ(days(), (CashDayLines{"20240311 5 0 5"}));

    CashBook allowed(open, {.modifyCash = true});
    EXPECT_TRUE(allowed.isDayClosed(monday));
    (void)made(allowed.insert(incomeOf(monday, cents(1))));
    (void)made(allowed.modify(key, incomeOf(monday, cents(2))));
    (void)made(allowed.remove(key));
    EXPECT_EQ(days(), (CashDayLines{"20240311 1 0 1"}));
}

TEST_F(CashBookTest, daysThatWereForgottenAreCounted)
{
    for (const QDate day : {monday, wednesday, friday})
        (void)inserted(incomeOf(day, cents(5)));
    const auto before = [this](QDate day) { return openDaysBefore(open.main(), open.auxiliary(), day); };
    EXPECT_EQ(before(monday), OpenDays{});
    EXPECT_EQ(before(friday), (OpenDays{2, monday}));
    closeDay(open.auxiliary(), monday.addDays(-9)); // a day without movements
    closeDay(open.auxiliary(), monday);
    EXPECT_EQ(before(friday), (OpenDays{1, wednesday}));
    EXPECT_EQ(before(friday.addDays(1)), (OpenDays{2, wednesday}));
    closeDay(open.auxiliary(), wednesday);
    EXPECT_EQ(before(friday), OpenDays{});
    for (const int count : {0, 1, 7}) {
        const QString text = closingText(friday, {cents(500), {}, cents(123456)}, {count, monday});
        EXPECT_TRUE(text.contains(QStringLiteral("1.234,56"))) << text.toStdString();
        EXPECT_EQ(text.contains(QStringLiteral("11-03-2024")), count > 0) << text.toStdString();
    }
}

TEST_F(CashBookTest, aSumBeyondTheRangeIsRefusedAndNothingIsKept)
{
    const Currency most = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max());
    (void)inserted(incomeOf(friday, most));
    const auto before = storedMovements(open.main());
    const QString day = valueOf(open.main(), "SELECT ypoloipo FROM tameio");
    EXPECT_THROW((void)cashBook.insert(incomeOf(friday, cents(1))), CurrencyOverflow) << "the day's own sum";
    EXPECT_THROW((void)cashBook.insert(incomeOf(monday, cents(1))), CurrencyOverflow) << "a later day's balance";
    EXPECT_EQ(storedMovements(open.main()), before);
    EXPECT_EQ(valueOf(open.main(), "SELECT group_concat(ypoloipo) FROM tameio"), day);
    (void)made(cashBook.insert(expenseOf(monday, cents(1))));
}

TEST_F(CashBookTest, aStepThatFailsUndoesTheStepsBeforeIt)
{
    const qint64 key = inserted(incomeOf(monday, cents(5)));
    (void)inserted(incomeOf(friday, cents(5)));
    book.execute("CREATE TRIGGER stop BEFORE UPDATE ON tameio WHEN old.hmeromhnia=20240315"
                 " BEGIN SELECT raise(ABORT, 'stopped'); END");
    letTriggersRun(open.main());
    const auto movements = storedMovements(open.main());
    const CashDayLines before = days();
    EXPECT_THROW((void)cashBook.insert(incomeOf(monday, cents(1))), SqlError);
    EXPECT_THROW((void)cashBook.modify(key, incomeOf(monday, cents(1))), SqlError);
    EXPECT_THROW((void)cashBook.remove(key), SqlError);
    EXPECT_EQ(storedMovements(open.main()), movements);
    EXPECT_EQ(days(), before);
}

} // namespace lorvan::test
