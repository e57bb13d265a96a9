#pragma once

#include <QDate>
#include <QString>

namespace lorvan {

/// The weekday's name as the entry page shows it; empty for an invalid date.
[[nodiscard]] QString entryWeekday(QDate date);

} // namespace lorvan
