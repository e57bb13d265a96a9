#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace lorvan {

/// Reads a typed date: day-month-year or day-month (of `today`'s year), with "-", "/", "." or "," between. A year has
/// two digits (00 to 29 is 20xx, 30 to 99 is 19xx) or four (from 0100). Anything else, the empty text and a lone
/// number included, is no date.
[[nodiscard]] std::optional<QDate> readDate(QStringView text, QDate today);

/// "DD-MM-YYYY"; empty for an invalid date.
[[nodiscard]] QString dateText(QDate date);

/// The form in which the files keep a date: the whole number yyyymmdd; 0 for an invalid date.
[[nodiscard]] int storedDate(QDate date);

/// The date of a stored yyyymmdd; an invalid date for a number that is none.
[[nodiscard]] QDate dateFromStored(qint64 stored);

/// The weekday's name as the entry page shows it; empty for an invalid date.
[[nodiscard]] QString entryWeekday(QDate date);

} // namespace lorvan
