#include "cashbook/cleared_entry.h"
#include "platform/away_time.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

EntryContent::Amount amountOf(const char* text)
{
    return {QString::fromUtf8(text), {}};
}

EntryContent contentOf(const char* chooser, const char* description, const char* income, const char* memorandum)
{
    EntryContent content;
    content.chooser = QString::fromUtf8(chooser);
    content.description = QString::fromUtf8(description);
    content.income = amountOf(income);
    content.expense = amountOf("0");
    content.memorandum = amountOf(memorandum);
    return content;
}

} // namespace

TEST(EntryContent, whatWouldBeLostAndWhatIsLeftOfTheMovementBefore)
{
    struct Row {
        EntryContent now;
        UnsavedEntry unsaved;
        bool memorandumLeft;
    };
    const EntryContent loaded = contentOf("100 Α", "Β", "5,00", "7,00");
    for (const Row& row : {Row{contentOf("", "", "0", "0"), UnsavedEntry::None, false},
             Row{contentOf(" ", "  ", "", "0,00"), UnsavedEntry::None, false},
             Row{contentOf("", "", "0", "7,00"), UnsavedEntry::None, true},
             Row{contentOf("1", "", "0", "7,00"), UnsavedEntry::Movement, false},
             Row{contentOf("", "Β", "0", "0"), UnsavedEntry::Movement, false},
             Row{contentOf("", "", "1,2,3", "0"), UnsavedEntry::Movement, false},
             Row{loaded, UnsavedEntry::Movement, false}}) {
        EXPECT_EQ(unsavedEntry(row.now, {}), row.unsaved) << row.now.chooser.toStdString();
        EXPECT_EQ(isMemorandumLeft(row.now, false), row.memorandumLeft) << row.now.chooser.toStdString();
        EXPECT_EQ(isMemorandumLeft(row.now, true), !row.now.memorandum.isZero());
        EXPECT_EQ(unsavedEntry(row.now, loaded), row.now == loaded ? UnsavedEntry::None : UnsavedEntry::Correction);
    }
}

TEST(ClearedEntry, comesBackOnlyToTheRowThatWasLoadedOnADayThatMayBeChanged)
{
    Movement loaded{incomeOf(QDate(2024, 3, 15), cents(500), QStringLiteral("Α")), 4};
    Movement another = loaded;
    another.memorandum = cents(1);
    const ClearedEntry entry{{}, loaded};
    EXPECT_EQ(returnOf({{}, {}}, {}, false), EntryReturn::Typed);
    EXPECT_EQ(returnOf(entry, loaded, true), EntryReturn::Loaded);
    EXPECT_EQ(returnOf(entry, {}, true), EntryReturn::MovementIsGone);
    EXPECT_EQ(returnOf(entry, another, true), EntryReturn::MovementIsAnother);
    EXPECT_EQ(returnOf(entry, loaded, false), EntryReturn::DayIsClosed);
}

TEST(AwayTime, countsAMinuteAndAClockTurnedBack)
{
    const QDateTime noon = fixedClock().now();
    for (const auto& [seconds, isLong] :
        {std::pair(0, false), std::pair(59, false), std::pair(60, true), std::pair(-5, true)}) {
        AwayTime away;
        EXPECT_FALSE(away.comeBack(noon));
        away.leave(noon);
        away.leave(noon.addSecs(50));
        EXPECT_EQ(away.comeBack(noon.addSecs(seconds)), isLong) << seconds;
    }
}

} // namespace lorvan::test
