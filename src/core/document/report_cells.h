#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

namespace lorvan {

/// As a paragraph of its own, an empty line; inside a paragraph, a line break.
inline constexpr QStringView lineBreak = u"\r";

/// A row's number, right-aligned in four characters; longer from 10,000 on.
[[nodiscard]] QString numberCell(int number);

/// The amount format, but a blank for zero. (For "0" use amountOrZeroText().)
[[nodiscard]] QString amountOrBlankText(Currency amount);

/// Without grouping and with as few decimals as possible: 1250,5.
[[nodiscard]] QString plainAmountText(Currency amount);

/// d/M/yyyy; empty for an invalid date.
[[nodiscard]] QString shortDateText(QDate date);

/// The weekday's full name, properly spelled: "Σάββατο". Empty for an invalid date.
[[nodiscard]] QString weekdayName(QDate date);

/// The weekday in two letters followed by the date: "Σά 16-03-2024".
[[nodiscard]] QString weekdayDateText(QDate date);

} // namespace lorvan
