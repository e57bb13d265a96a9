#include "movements/day_steps.h"

#include "platform/engine/connection.h"

namespace lorvan {
namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;

QDate cashDayBefore(Connection& main, QDate from)
{
    auto row = main.prepare("SELECT hmeromhnia FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia DESC LIMIT 1");
    row.bind(from);
    return row.step() ? row.date(0) : QDate();
}

QDate cashDayAfter(Connection& main, QDate from)
{
    auto row = main.prepare("SELECT hmeromhnia FROM tameio WHERE hmeromhnia>? ORDER BY hmeromhnia LIMIT 1");
    row.bind(from);
    return row.step() ? row.date(0) : QDate();
}

QDate stepped(Connection& main, QDate from, DayStep step, QDate today)
{
    switch (step) {
    case DayStep::PreviousCashDay:
        if (const QDate day = cashDayBefore(main, from); day.isValid())
            return day;
        return today < from ? today : QDate();
    case DayStep::NextCashDay:
        if (const QDate day = cashDayAfter(main, from); day.isValid())
            return day;
        return today > from ? today : QDate();
    case DayStep::PreviousMonth:
        return from.addMonths(-1);
    case DayStep::NextMonth:
        return from.addMonths(1);
    case DayStep::PreviousDay:
        return from.addDays(-1);
    case DayStep::NextDay:
        return from.addDays(1);
    case DayStep::Today:
        return today;
    }
    return {};
}

} // namespace

QDate dayAfterStep(Connection& main, QDate from, DayStep step, QDate today)
{
    const QDate day = stepped(main, from, step, today);
    return day.isValid() && day.year() >= firstYear && day.year() <= lastYear ? day : QDate();
}

} // namespace lorvan
