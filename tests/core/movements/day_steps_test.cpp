#include "movements/day_steps.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(DaySteps, leadFromCashDayToCashDayAndOverTheCalendar)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    for (const QDate day : {QDate(2023, 11, 3), QDate(2024, 3, 14), QDate(2024, 3, 18)})
        main.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,0,0,0)").bind(day).run();
    const QDate today(2024, 3, 15);
    const QDate none;
    using enum DayStep;
    const struct {
        DayStep step;
        QDate from, to;
        QDate today = {2024, 3, 15};
    } cases[] = {{PreviousCashDay, today, {2024, 3, 14}}, {PreviousCashDay, {2024, 3, 14}, {2023, 11, 3}},
        {PreviousCashDay, {2023, 11, 3}, none}, {PreviousCashDay, {2023, 11, 3}, {2023, 1, 1}, {2023, 1, 1}},
        {NextCashDay, {2023, 11, 3}, {2024, 3, 14}}, {NextCashDay, {2024, 3, 14}, {2024, 3, 18}},
        {NextCashDay, {2024, 3, 18}, none}, {NextCashDay, {2024, 3, 18}, {2024, 4, 1}, {2024, 4, 1}},
        {PreviousMonth, {2024, 3, 31}, {2024, 2, 29}}, {NextMonth, {2024, 12, 31}, {2025, 1, 31}},
        {PreviousDay, {2024, 3, 1}, {2024, 2, 29}}, {NextDay, {9999, 12, 31}, none}, {PreviousDay, {100, 1, 1}, none},
        {Today, {2023, 11, 3}, today}};
    for (const auto& each : cases)
        EXPECT_EQ(dayAfterStep(main, each.from, each.step, each.today), each.to)
            << static_cast<int>(each.step) << each.from.toString().toStdString();
}

} // namespace lorvan::test
