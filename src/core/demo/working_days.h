#pragma once

#include <QDate>

#include <vector>

namespace lorvan {

/// True on the public holidays on which Greek shops are closed, including the movable ones around Orthodox Easter.
[[nodiscard]] bool isGreekHoliday(QDate day);

/// Monday to Saturday, except holidays.
[[nodiscard]] bool isWorkingDay(QDate day);

/// The last `count` working days up to and including `last`, oldest first.
[[nodiscard]] std::vector<QDate> workingDaysUntil(QDate last, int count);

} // namespace lorvan
