#include "movements/calendar_days.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <QStringList>

namespace lorvan {
namespace {

constexpr int daysOfWeek = 7;

/// The day in the list; null if it is outside.
CalendarDay* find(std::vector<CalendarDay>& days, QDate day)
{
    const qint64 place = days.front().day.daysTo(day);
    const bool isInside = place >= 0 && place < static_cast<qint64>(days.size());
    return isInside ? &days[static_cast<std::size_t>(place)] : nullptr;
}

/// From one day with movements to the next, so that the movements themselves are not read.
void markMovements(Connection& main, std::vector<CalendarDay>& days)
{
    QDate from = days.front().day.addDays(-1);
    while (true) {
        auto next = main.prepare(
            "SELECT hmeromhnia FROM kinhseis WHERE hmeromhnia>? AND hmeromhnia<=? ORDER BY hmeromhnia LIMIT 1");
        next.bind(from, days.back().day);
        if (!next.step())
            return;
        from = next.date(0);
        if (CalendarDay* const found = find(days, from))
            found->hasMovements = true;
        else
            return;
    }
}

} // namespace

std::vector<CalendarDay> calendarDays(Connection& main, Connection& auxiliary, QDate first, QDate last)
{
    std::vector<CalendarDay> days;
    for (QDate day = first; day <= last; day = day.addDays(1))
        days.push_back({day});
    if (days.empty())
        return days;
    markMovements(main, days);
    auto balances = main.prepare(
        "SELECT hmeromhnia, ypoloipo FROM tameio WHERE hmeromhnia BETWEEN ? AND ? ORDER BY hmeromhnia, aa");
    balances.bind(first, last);
    while (balances.step()) {
        if (CalendarDay* const found = find(days, balances.date(0)))
            found->balance = balances.currency(1);
    }
    auto closings =
        auxiliary.prepare("SELECT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos BETWEEN ? AND ?");
    closings.bind(first, last);
    while (closings.step()) {
        if (CalendarDay* const found = find(days, closings.date(0)))
            found->isClosed = true;
    }
    return days;
}

QDate firstOnCalendarPage(QDate month)
{
    const QDate first(month.year(), month.month(), 1);
    return first.addDays(-(first.dayOfWeek() - 1) % daysOfWeek);
}

QString calendarDayText(const CalendarDay& day)
{
    QStringList lines{entryWeekday(day.day) + u' ' + dateText(day.day)};
    if (day.balance)
        lines += QStringLiteral("Υπόλοιπο ") + amountText(*day.balance);
    if (!day.hasMovements)
        lines += QStringLiteral("Χωρίς κινήσεις");
    if (day.isClosed)
        lines += QStringLiteral("Κλειστή");
    return lines.join(u'\n');
}

} // namespace lorvan
