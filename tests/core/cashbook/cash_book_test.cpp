#include "cashbook/cash_book.h"

#include "cashbook/cash_closing.h"
#include "cashbook/movement_batch.h"
#include "marker/usage_marker.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"
#include "support/book_model.h"
#include "support/files.h"
#include "support/mount.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);
const QDate wednesday(2024, 3, 13);
const QDate friday(2024, 3, 15);

class CashBookTest : public testing::Test {
protected:
    static DayView made(const ChangeOutcome& outcome) { return std::get<ChangedDay>(outcome).view; }

    static std::optional<MovementRefusal> refusalOf(const ChangeOutcome& outcome)
    {
        const auto* const refusal = std::get_if<MovementRefusal>(&outcome);
        return refusal ? std::optional(*refusal) : std::nullopt;
    }

    qint64 inserted(const MovementDraft& draft) { return made(cashBook.insert(draft)).movements.back().key; }

    [[nodiscard]] CashDayLines days() { return storedCashDays(open.main()); }

    TemporaryBook book;
    Book open = book.open();
    CashBook cashBook{open, by()};
};

qint64 enterAtOnce(const TemporaryBook& temporary, const std::vector<MovementDraft>& drafts)
{
    Book book = temporary.open();
    Transaction writing(book.main(), byAll());
    MovementBatch batch(book.main(), book.auxiliary(), by());
    for (const MovementDraft& draft : drafts)
        EXPECT_FALSE(batch.add(draft));
    const qint64 repeated = batch.settle();
    writing.commit();
    return repeated;
}

} // namespace

TEST_F(CashBookTest, aChangeMovesEveryLaterDayAndNoEarlierOne)
{
    const qint64 key = inserted(incomeOf(monday, cents(1000)));
    (void)inserted(expenseOf(friday, cents(300)));
    const DayView view = made(cashBook.insert(incomeOf(wednesday, cents(10'000))));
    EXPECT_EQ(days(), (CashDayLines{"20240311 1000 0 1000", "20240313 10000 0 11000", "20240315 0 300 10700"}));
    EXPECT_EQ(view.carried.fromDay, monday);
    EXPECT_EQ(view.carried.balance, cents(1000));
    EXPECT_EQ(view.figures.closingBalance, cents(11'000));

    EXPECT_EQ(made(cashBook.modify(key, incomeOf(friday, cents(100)))).day, monday) << "whatever the draft says";
    EXPECT_EQ(days(), (CashDayLines{"20240311 100 0 100", "20240313 10000 0 10100", "20240315 0 300 9800"}));
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

    Connection writer = book.openMain();
    const QString before = valueOf(writer, "PRAGMA data_version");
    (void)cashBook.showDay(monday, DayRow::Write);
    EXPECT_EQ(valueOf(writer, "PRAGMA data_version"), before) << "a row that is right is not written again";
}

TEST_F(CashBookTest, movementsStandInTheOrderOfTheirEntryAndAreStoredWhole)
{
    const QString awkward = "  O'Neil \"50%\" -- " + QString(10'000, u'ω') + u' ';
    MovementDraft first = incomeOf(monday, cents(1), awkward);
    first.memorandum = cents(77);
    first.cheque = true;
    const qint64 key = inserted(first);
    (void)inserted(expenseOf(monday, cents(2)));
    const auto movements = cashBook.showDay(monday, DayRow::LeaveAlone).movements;
    ASSERT_EQ(movements.size(), 2U);
    first.description = awkward.trimmed();
    EXPECT_EQ(movements[0], (Movement{first, key}));
    EXPECT_EQ(movements[0].key, key);
    EXPECT_EQ(cashBook.find(key), movements[0]);
    EXPECT_FALSE(movements[1].cheque);
    EXPECT_FALSE(cashBook.find(key + 100));
    EXPECT_EQ(valueOf(open.main(), "SELECT aa_omada || ' ' || epitagh FROM kinhseis ORDER BY aa"), "1 -1");
    EXPECT_EQ(valueOf(open.main(), "SELECT grammh FROM kinhseis ORDER BY aa DESC"), storedLine(movements[1]));
}

TEST_F(CashBookTest, refusesInTheOrderOfTheChecksAndWritesNothing)
{
    book.addCode(300, "Παλιός", true, 0, false);
    const qint64 key = inserted(incomeOf(monday, cents(5)));
    const CashDayLines before = days();
    const MovementDraft good = incomeOf(monday, cents(1));
    const struct {
        qint32 code;
        const char* description;
        QDate day;
        MovementRefusal refusal;
    } cases[] = {{0, "", {}, MovementRefusal::DateIsInvalid}, {0, "", monday, MovementRefusal::NoCode},
        {999, "", monday, MovementRefusal::CodeHasChanged}, {300, "α", monday, MovementRefusal::CodeHasChanged},
        {100, "  ", monday, MovementRefusal::NoDescription}};
    for (const auto& [code, description, day, refusal] : cases) {
        MovementDraft draft = incomeOf(day, cents(1), description);
        draft.code = code;
        EXPECT_EQ(cashBook.refusalOf(draft), refusal);
        EXPECT_EQ(refusalOf(cashBook.insert(draft)), refusal);
        EXPECT_EQ(refusalOf(cashBook.modify(key, draft)), refusal);
    }
    EXPECT_EQ(cashBook.refusalOf(good), std::nullopt);
    EXPECT_EQ(refusalOf(cashBook.modify(key + 100, good)), MovementRefusal::MovementIsGone);
    EXPECT_EQ(refusalOf(cashBook.remove(key + 100)), MovementRefusal::MovementIsGone);
    EXPECT_EQ(days(), before);
    EXPECT_EQ(storedMovements(open.main()).size(), 1U);
}

TEST_F(CashBookTest, aClosedDayIsClosedToThoseWithoutTheRight)
{
    const qint64 key = inserted(incomeOf(monday, cents(5)));
    EXPECT_TRUE(closeDay(open.auxiliary(), byAll(), monday));
    EXPECT_FALSE(closeDay(open.auxiliary(), byAll(), monday));
    EXPECT_EQ(valueOf(open.auxiliary(), "SELECT count(*) FROM klhsimotameioy"), "1");
    EXPECT_TRUE(cashBook.isDayClosed(monday));
    EXPECT_FALSE(cashBook.isDayClosed(friday));

    EXPECT_EQ(refusalOf(cashBook.insert(incomeOf(monday, cents(1)))), MovementRefusal::DayIsClosed);
    EXPECT_EQ(refusalOf(cashBook.modify(key, incomeOf(friday, cents(1)))), MovementRefusal::DayIsClosed)
        << "its own day";
    EXPECT_EQ(refusalOf(cashBook.remove(key)), MovementRefusal::DayIsClosed);
    EXPECT_FALSE(cashBook.mayChange(monday));
    EXPECT_TRUE(cashBook.mayChange(friday));
    EXPECT_EQ(days(), (CashDayLines{"20240311 5 0 5"}));

    CashBook allowed(open, by({.modifyCash = true}));
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
    closeDay(open.auxiliary(), byAll(), monday.addDays(-9)); // a day without movements
    closeDay(open.auxiliary(), byAll(), monday);
    EXPECT_EQ(before(friday), (OpenDays{1, wednesday}));
    EXPECT_EQ(before(friday.addDays(1)), (OpenDays{2, wednesday}));
    EXPECT_EQ(listOpenDaysBefore(open.main(), open.auxiliary(), friday.addDays(1)), (std::vector{wednesday, friday}));
    const std::pair<QDate, OpenDays> reminders[] = {
        {monday, {}}, {friday, {1, wednesday}}, {monday.addDays(60), {2, wednesday}}, {monday.addDays(61), {}}};
    for (const auto& [today, expected] : reminders)
        EXPECT_EQ(forgottenDays(open.main(), open.auxiliary(), today), expected) << dateText(today).toStdString();
    closeDay(open.auxiliary(), byAll(), wednesday);
    EXPECT_EQ(before(friday), OpenDays{});
    for (const int count : {0, 1, 7}) {
        const QString text = closingText(friday, {cents(500), {}, cents(123456)}, {count, monday});
        EXPECT_TRUE(text.contains("1.234,56")) << text.toStdString();
        EXPECT_EQ(text.contains("11-03-2024"), count > 0) << text.toStdString();
    }
}

TEST_F(CashBookTest, aSumBeyondTheRangeIsRefusedAndNothingIsKept)
{
    const Currency most = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max());
    const qint64 key = inserted(expenseOf(monday, cents(1)));
    (void)inserted(incomeOf(friday, most));
    (void)made(cashBook.insert(incomeOf(wednesday, cents(1))));
    const auto before = storedMovements(open.main());
    const CashDayLines day = days();
    EXPECT_THROW((void)cashBook.insert(incomeOf(friday, cents(1))), CurrencyOverflow) << "the day's own sum";
    EXPECT_THROW((void)cashBook.insert(incomeOf(monday, cents(1))), CurrencyOverflow) << "a later day's balance";
    EXPECT_THROW((void)cashBook.modify(key, incomeOf(monday, cents(1))), CurrencyOverflow);
    EXPECT_THROW((void)cashBook.remove(key), CurrencyOverflow);
    EXPECT_EQ(storedMovements(open.main()), before);
    EXPECT_EQ(days(), day);
}

TEST_F(CashBookTest, aReadOnlyFolderShowsTheBookAndRefusesChanges)
{
    (void)inserted(incomeOf(monday, cents(5)));
    if (!Mount::readOnly(book.folder()))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a folder for reading only";
    Book reading = book.open();
    CashBook looking(reading, by());
    EXPECT_TRUE(reading.main().isReadOnly());
    EXPECT_EQ(looking.showDay(monday, DayRow::Write).figures.closingBalance, cents(5));
    EXPECT_EQ(troubleOf([&] { (void)looking.insert(incomeOf(monday, cents(1))); }), SqlError::Kind::ReadOnly);
    UsageMarker marker(book.files().usageMarker(), {});
    EXPECT_THROW((void)marker.claim(), MarkerError);
    EXPECT_EQ(days(), (CashDayLines{"20240311 5 0 5"}));
    Mount::undo(book.folder());
}

TEST(MovementBatch, tellsRepeatedMovementsAndRefusesWhatTypingRefuses)
{
    const QDate day(2024, 3, 15);
    const QDate closed(2024, 3, 14);
    const TemporaryBook book;
    book.addCode(300, "Παλιός", true, 1, false);
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
    MovementBatch batch(main, auxiliary, by());
    EXPECT_EQ(batch.add(incomeOf(closed, cents(1))), MovementRefusal::DayIsClosed);
    EXPECT_EQ(batch.add(incomeOf(QDate(), cents(1))), MovementRefusal::DateIsInvalid);
    EXPECT_EQ(batch.add(unknown), MovementRefusal::CodeHasChanged);
    EXPECT_EQ(batch.add(incomeOf(day, cents(1), " ")), MovementRefusal::NoDescription);
    EXPECT_FALSE(MovementBatch(main, auxiliary, by({.modifyCash = true})).refusalOf(incomeOf(closed, cents(1))));
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kinhseis"), "7");
}

} // namespace lorvan::test
