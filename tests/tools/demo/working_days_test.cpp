#include "demo/working_days.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(WorkingDays, leaveOutSundaysAndTheHolidaysOfGreece)
{
    const std::tuple<QDate, bool, const char*> cases[] = {
        {{2026, 11, 21}, true, "Saturday"},
        {{2026, 11, 22}, false, "Sunday"},
        {{2024, 3, 18}, false, "Clean Monday of the late Easter of 5 May"},
        {{2025, 4, 18}, false, "Good Friday"},
        {{2025, 4, 19}, true, "Holy Saturday"},
        {{2025, 4, 21}, false, "Easter Monday"},
        {{2026, 4, 6}, true, "Easter Monday of the western churches alone"},
        {{2026, 6, 1}, false, "Whit Monday"},
        {{2025, 12, 26}, false, "the day after Christmas"},
        {{2026, 10, 28}, false, "national day"},
    };
    for (const auto& [day, works, why] : cases)
        EXPECT_EQ(isWorkingDay(day), works) << why;
    EXPECT_EQ(workingDaysUntil({2025, 4, 21}, 2), (std::vector<QDate>{{2025, 4, 17}, {2025, 4, 19}}));
}

} // namespace lorvan::test
