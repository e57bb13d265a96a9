#include "demo/working_days.h"

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

struct FixedHoliday {
    int day;
    int month;
};

constexpr std::array fixedHolidays{FixedHoliday{1, 1}, FixedHoliday{6, 1}, FixedHoliday{25, 3}, FixedHoliday{1, 5},
    FixedHoliday{15, 8}, FixedHoliday{28, 10}, FixedHoliday{25, 12}, FixedHoliday{26, 12}};

/// Clean Monday, Good Friday, Easter Monday, Whit Monday, in days from Easter Sunday.
constexpr std::array movableHolidays{-48, -2, 1, 50};

/// Orthodox Easter Sunday: the Julian date, which is 13 days later in our calendar from 1900 to 2099.
QDate easterSunday(int year)
{
    const int moon = (19 * (year % 19) + 15) % 30;
    const int sunday = (2 * (year % 4) + 4 * (year % 7) - moon + 34) % 7;
    const int sum = moon + sunday + 114;
    constexpr int calendarGap = 13;
    return QDate(year, sum / 31, sum % 31 + 1).addDays(calendarGap);
}

} // namespace

bool isGreekHoliday(QDate day)
{
    const bool isFixed = std::any_of(fixedHolidays.begin(), fixedHolidays.end(),
        [day](FixedHoliday holiday) { return holiday.day == day.day() && holiday.month == day.month(); });
    const qint64 fromEaster = easterSunday(day.year()).daysTo(day);
    return isFixed || std::find(movableHolidays.begin(), movableHolidays.end(), fromEaster) != movableHolidays.end();
}

bool isWorkingDay(QDate day)
{
    return day.dayOfWeek() != Qt::Sunday && !isGreekHoliday(day);
}

std::vector<QDate> workingDaysUntil(QDate last, int count)
{
    std::vector<QDate> days;
    for (QDate day = last; static_cast<int>(days.size()) < count; day = day.addDays(-1)) {
        if (isWorkingDay(day))
            days.push_back(day);
    }
    std::reverse(days.begin(), days.end());
    return days;
}

} // namespace lorvan
