#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <optional>

namespace lorvan {

class Connection;

/// A month is named by its first day.

/// Reads a typed month: month-year or a month of this year, in the forms of readDate(): "10-2026", "10/26", "10".
[[nodiscard]] std::optional<QDate> readTypedMonth(const QString& text, QDate today);

/// "10-2026": a form that readTypedMonth() reads.
[[nodiscard]] QString typedMonth(QDate month);

/// The last month before that of `today` with movements; no value if there is none. Throws SqlError.
[[nodiscard]] std::optional<QDate> lastFullMonth(Connection& main, QDate today);

/// The number of movements in the month. Throws SqlError.
[[nodiscard]] std::int64_t movementsInMonth(Connection& main, QDate month);

/// "Ο μήνας Οκτώβριος 2026 δεν έχει κινήσεις."
[[nodiscard]] QString emptyMonthText(QDate month);

/// A suggested name for the package: "Πακέτο μήνα 10-2026.zip".
[[nodiscard]] QString packageName(QDate month);

} // namespace lorvan
