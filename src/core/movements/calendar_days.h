#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace lorvan {

class Connection;

/// What a calendar tells about a day.
struct CalendarDay {
    QDate day;
    bool hasMovements = false;
    bool isClosed = false;
    std::optional<Currency> balance = {}; ///< As its cash day has it; no value if it is none.

    friend bool operator==(const CalendarDay&, const CalendarDay&) = default;
};

/// The days from `first` to `last`, both included. Each day costs a look-up in the indexes, however many movements it
/// has. Throws SqlError.
[[nodiscard]] std::vector<CalendarDay> calendarDays(Connection& main, Connection& auxiliary, QDate first, QDate last);

/// The 42 days that the page of a month shows, six weeks from Monday to Sunday: the first of them.
[[nodiscard]] QDate firstOnCalendarPage(QDate month);
inline constexpr int daysOnCalendarPage = 42;

/// The day in words, a line for each thing that there is to tell.
[[nodiscard]] QString calendarDayText(const CalendarDay& day);

} // namespace lorvan
