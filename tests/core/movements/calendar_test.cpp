#include "movements/calendar_days.h"
#include "platform/date_text.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(CalendarDays, tellMovementsBalanceAndClosingOfEachDay)
{
    const TemporaryBook book;
    for (const QDate day : {QDate(2024, 2, 25), QDate(2024, 2, 26), QDate(2024, 2, 28), QDate(2024, 2, 28)})
        book.addMovementRow(incomeOf(day, cents(100)));
    book.execute(
        "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240226,0,0,50000),(20240227,0,0,-1)");
    book.close({2024, 2, 27});
    book.close({2024, 3, 1});
    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    const auto days = calendarDays(main, auxiliary, {2024, 2, 26}, {2024, 2, 29});
    EXPECT_EQ(days,
        (std::vector<CalendarDay>{{{2024, 2, 26}, true, false, cents(500)},
            {{2024, 2, 27}, false, true, Currency::fromTenThousandths(-1)}, {{2024, 2, 28}, true}, {{2024, 2, 29}}}));
    EXPECT_EQ(calendarDayText(days[0]), "Δευτέρα 26-02-2024\nΥπόλοιπο 5,00");
    EXPECT_EQ(calendarDayText(days[1]), "Τρίτη 27-02-2024\nΥπόλοιπο 0,00\nΧωρίς κινήσεις\nΚλειστή");
    EXPECT_TRUE(calendarDays(main, auxiliary, {2024, 2, 2}, {2024, 2, 1}).empty());
}

TEST(CalendarDays, beginAPageWithTheMondayBeforeTheFirst)
{
    EXPECT_EQ(firstOnCalendarPage({2024, 3, 15}), QDate(2024, 2, 26));
    EXPECT_EQ(firstOnCalendarPage({2024, 4, 30}), QDate(2024, 4, 1));
    EXPECT_EQ(firstOnCalendarPage({2024, 9, 1}), QDate(2024, 8, 26));
    EXPECT_EQ(monthText({2025, 11, 3}), "Νοέμβριος 2025");
}

} // namespace lorvan::test
