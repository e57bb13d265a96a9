#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

namespace lorvan {

/// A paragraph of its own that leaves an empty line; inside a paragraph it breaks the line.
inline constexpr QStringView lineBreak = u"\r";

/// A row's number right-aligned in four characters; from 10,000 on it is longer.
[[nodiscard]] QString numberCell(int number);

/// The amount format, a blank for zero. (For "0" there is amountOrZeroText.)
[[nodiscard]] QString amountOrBlankText(Currency amount);

/// Without grouping and with no more decimals than it has: 1250,5.
[[nodiscard]] QString plainAmountText(Currency amount);

/// d/M/yyyy; empty for an invalid date.
[[nodiscard]] QString shortDateText(QDate date);

/// The weekday's full name, properly spelled: "Σάββατο". Empty for an invalid date.
[[nodiscard]] QString weekdayName(QDate date);

/// The weekday in two letters before the date: "Σά 16-03-2024".
[[nodiscard]] QString weekdayDateText(QDate date);

} // namespace lorvan
