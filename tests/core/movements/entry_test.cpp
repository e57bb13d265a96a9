#include "movements/cleared_entry.h"
#include "platform/away_time.h"
#include "platform/entry_rules.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

EntryContent contentOf(const char* chooser, const char* description, const char* income, const char* memorandum)
{
    EntryContent content;
    content.chooser = chooser;
    content.description = description;
    content.income = {income, {}};
    content.expense = {"0", {}};
    content.memorandum = {memorandum, {}};
    return content;
}

} // namespace

TEST(TypingRules, turnWhatIsTypedIntoWhatTheFieldTakes)
{
    const struct {
        TypingRule rule;
        const char *typed, *shown;
    } cases[] = {{TypingRule::Date, "12.03/2005", "12-03-2005"}, {TypingRule::Date, "1 2,3", "1-2,3"},
        {TypingRule::Date, "!\"#$%&'()*+-", "------------"}, {TypingRule::Date, "1a:;αΩ@[~2", "12"},
        {TypingRule::Amount, "1.234.5", "1,234,5"}, {TypingRule::Amount, "-12 €α", ",12,,,"},
        {TypingRule::OpeningDate, "5.12.2005", "5-12-2005"}, {TypingRule::OpeningDate, "5a€", "5-€"},
        {TypingRule::OpeningAmount, "1500.50", "1500,50"}, {TypingRule::OpeningAmount, "-1,5+x€", "-1,5,,€"},
        {TypingRule::Capitals, "άλφα ΐ ςß1'", "ΆΛΦΑ ΐ Σß1'"}, {TypingRule::Any, "άλφα.", "άλφα."}};
    for (const auto& [rule, typed, shown] : cases)
        EXPECT_EQ(typedText(rule, typed), shown);
}

TEST(CodeChooser, readsTheNumberBeforeTheFirstBlank)
{
    using Kind = ChooserReading::Kind;
    const std::pair<const char*, qint32> numbers[] = {{"100", 100}, {" 100 Λιανική 5", 100}, {"0", 0}, {"-5", -5},
        {"5,0", 5}, {"2147483647", 2147483647}, {"-2147483648", std::numeric_limits<qint32>::min()}};
    for (const auto& [text, code] : numbers)
        EXPECT_EQ(readChooser(text).code, code) << text;
    const std::pair<Kind, QStringList> others[] = {{Kind::Empty, {"", "   "}},
        {Kind::Number, {"2147483648", "99999999999999999999", "5,5"}},
        {Kind::NotANumber, {"Λιανική", "5α", "α 5", "1,2,3"}}};
    for (const auto& [kind, texts] : others) {
        for (const QString& text : texts) {
            EXPECT_EQ(readChooser(text).kind, kind) << text.toStdString();
            EXPECT_EQ(readChooser(text).code, std::nullopt) << text.toStdString();
        }
    }
}

TEST(EntryContent, whatWouldBeLostAndWhatIsLeftOfTheMovementBefore)
{
    const EntryContent loaded = contentOf("100 Α", "Β", "5,00", "7,00");
    struct Row {
        EntryContent now;
        UnsavedEntry unsaved;
        bool memorandumLeft;
    };
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
    Movement loaded{incomeOf(QDate(2024, 3, 15), cents(500), "Α"), 4};
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
