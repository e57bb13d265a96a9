#include "movements/day_view.h"
#include "platform/date_text.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <limits>

namespace lorvan::test {

TEST(DayLine, isRightToTheCharacter)
{
    const QDate day(2024, 3, 15);
    const struct {
        const char* what;
        MovementDraft movement;
        int number;
        const char* line;
    } cases[] = {
        {"income with a memorandum amount", {100, day, "Λιανική", cents(12'345), {}, cents(500), false}, 1,
            "   1   100 Λιανική                          5,00     123,45          0 "},
        {"expense by cheque", {20, day, "ΔΕΗ", {}, cents(1'000'000), {}, true}, 12,
            "  12    20 ΔΕΗ                                            0  10.000,00 §"},
        {"longer than its columns",
            {1234567, day, "Μακριά περιγραφή που κόβεται", cents(1'234'567'890), {}, cents(-100), false}, 12345,
            "2345 34567 Μακριά περιγραφή που κ          -1,00.345.678,90          0 "},
        {"nothing but a code", {7, day, "  α  ", {}, {}, {}, false}, 3,
            "   3     7 α                                              0          0 "},
    };
    for (const auto& expected : cases)
        EXPECT_EQ(movementLine(expected.movement, expected.number), expected.line) << expected.what;
    EXPECT_EQ(storedLine(cases[1].movement), "   20 ΔΕΗ                                            0  10.000,00 §");
}

TEST(DayLine, summaryAndColumnsAreWholeWhereTheLineIsCut)
{
    const QString description = QString(10'000, u'δ') + " \"100%\"";
    const Currency least = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::min());
    const MovementDraft movement{1234567, QDate(2024, 3, 15), description, {}, least, least, true};
    EXPECT_EQ(movementLine(movement, 1).size(), 72);
    EXPECT_EQ(movementSummary(movement, 10'000),
        "10000. 1234567 " + description + "\nΈξοδα -922.337.203.685.477,58\nΛ τάξεως -922.337.203.685.477,58\nΕπιταγή");
    const DayCells cells = movementCells(movement, 10'000);
    EXPECT_EQ(QStringList(cells.begin(), cells.end()).join(u'|'),
        "10000|34567|" + description + "|-922.337.203.685.477,58|0|-922.337.203.685.477,58|§");
}

TEST(DayLine, onlyWhatIsLongerThanTheLinesColumnsWidensThem)
{
    const auto columns = [](qint64 units, int number) {
        DayWidths widths;
        widths.include(movementCells({1, {}, QString(40, u'δ'), cents(units), {}, {}, false}, number));
        return QStringLiteral("%1 %2 %3 %4")
            .arg(widths.startOf(DayColumn::Description))
            .arg(widths.of(DayColumn::Income))
            .arg(widths.ofLine())
            .arg(widths.missingForDescription());
    };
    EXPECT_EQ(columns(99'999'999, 9999), "11 11 72 18");
    EXPECT_EQ(columns(100'000'000, 10'000), "12 13 75 18");
}

TEST(DayLine, theCarriedBalanceNamesItsDay)
{
    EXPECT_EQ(carriedLine({QDate(2005, 3, 2), cents(123'456)}), "Υπόλοιπο για την 02-03-2005    1.234,56");
    EXPECT_EQ(carriedLine({QDate(2005, 3, 2), cents(-50)}), "Υπόλοιπο για την 02-03-2005    -0,50");
    EXPECT_EQ(carriedLine({QDate(2005, 3, 2), {}}), "Υπόλοιπο από την προηγούμενη 0");
    EXPECT_EQ(carriedLine({QDate(2005, 3, 2), cents(123'456), cents(1)}), "Υπόλοιπο από την προηγούμενη 1.234,56");
    EXPECT_EQ(carriedLine({}), "Υπόλοιπο από την προηγούμενη 0");
}

TEST(Weekday, isSpelledAsTheEntryShowsIt)
{
    EXPECT_EQ(entryWeekday(QDate(2024, 3, 16)), "Σαββάτο");
    EXPECT_EQ(entryWeekday(QDate(2024, 3, 17)), "Κυριακή");
    EXPECT_EQ(entryWeekday(QDate(2024, 3, 18)), "Δευτέρα");
    EXPECT_EQ(entryWeekday(QDate()), QString());
}

} // namespace lorvan::test
