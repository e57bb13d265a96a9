#pragma once

#include <QDate>

namespace lorvan {

class Connection;

/// Where a key leads to from the shown day.
enum class DayStep { PreviousCashDay, NextCashDay, PreviousMonth, NextMonth, PreviousDay, NextDay, Today };

/// The day that a step leads to. A month keeps the day of the month, or takes its last one. After the last cash day
/// comes `today` if it is later, before the first one if it is earlier; it may not be a cash day yet. An invalid date
/// if there is no such day, or none between the years 100 and 9999. One look-up in the index of the cash days; throws
/// SqlError.
[[nodiscard]] QDate dayAfterStep(Connection& main, QDate from, DayStep step, QDate today);

} // namespace lorvan
