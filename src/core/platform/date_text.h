#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace lorvan {

/// Reads a typed date: day-month-year or day-month (in the year of `today`), separated by "-", "/", "." or ",". A year
/// has two digits (00 to 29 is 20xx, 30 to 99 is 19xx) or four (from 0100). Anything else, including an empty text and
/// a single number, is not a date.
[[nodiscard]] std::optional<QDate> readDate(QStringView text, QDate today);

/// "DD-MM-YYYY"; empty for an invalid date.
[[nodiscard]] QString dateText(QDate date);

/// The form in which the files store a date: the integer yyyymmdd; 0 for an invalid date.
[[nodiscard]] int storedDate(QDate date);

/// The date of a stored yyyymmdd; an invalid date if the number is not one.
[[nodiscard]] QDate dateFromStored(qint64 stored);

/// "Νοέμβριος 2025".
[[nodiscard]] QString monthText(QDate day);
/// "Νοε".
[[nodiscard]] QString shortMonthName(QDate day);

/// The weekday's name as the entry page shows it; empty for an invalid date.
[[nodiscard]] QString entryWeekday(QDate date);

} // namespace lorvan
