#pragma once

#include "book/book_files.h"

#include <QDate>

namespace lorvan::bench {

inline constexpr int cashDays = 3000;
inline constexpr qint32 firstCode =
    101; ///< An income code; the 40 codes are numbered from here, income and expense in turn.

/// The days that are measured. They hold the same number of movements in a book of any size.
[[nodiscard]] QDate oldestDay();
[[nodiscard]] QDate middleDay();
[[nodiscard]] QDate newestDay();
inline constexpr int movementsOfMeasuredDay = 30;

/// A day with its share of all movements: 3, 33 or 333 in books of 10 thousand, 100 thousand, 1 million.
[[nodiscard]] QDate ordinaryDay();

/// Makes a book with that many movements over 3,000 consecutive days, one in ten of them entered late, every balance
/// consistent. A book that is there already is used as it is.
void ensureBook(const BookFiles& files, int movements);

} // namespace lorvan::bench
