#include "tools/working_days.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

TEST(WorkingDays, LeaveOutSundaysAndTheHolidaysOfGreece)
{
    struct Row {
        QDate day;
        bool works;
        const char* why;
    };
    for (const Row& row : {
             Row{{2026, 11, 21}, true, "Saturday"},
             Row{{2026, 11, 22}, false, "Sunday"},
             Row{{2024, 3, 18}, false, "Clean Monday of the late Easter of 5 May"},
             Row{{2025, 3, 3}, false, "Clean Monday"},
             Row{{2025, 4, 18}, false, "Good Friday"},
             Row{{2025, 4, 19}, true, "Holy Saturday"},
             Row{{2025, 4, 21}, false, "Easter Monday"},
             Row{{2026, 4, 6}, true, "Easter Monday of the western churches alone"},
             Row{{2026, 6, 1}, false, "Whit Monday"},
             Row{{2027, 5, 3}, false, "Easter Monday"},
             Row{{2025, 12, 26}, false, "the day after Christmas"},
             Row{{2026, 10, 28}, false, "national day"},
             Row{{2026, 12, 24}, true, "Christmas Eve"},
         })
        EXPECT_EQ(isWorkingDay(row.day), row.works) << row.why;
}

TEST(WorkingDays, AreCountedBackFromTheLastOne)
{
    const std::vector<QDate> expected{{2025, 4, 17}, {2025, 4, 19}, {2025, 4, 22}};
    EXPECT_EQ(workingDaysUntil({2025, 4, 22}, 3), expected);
    EXPECT_EQ(workingDaysUntil({2025, 4, 21}, 2), std::vector<QDate>(expected.begin(), expected.begin() + 2));
}

} // namespace
} // namespace lorvan::test
