#pragma once

#include "cashbook/book_check.h"

#include <ostream>

namespace lorvan {

/// Prints in Greek what a check has found: the findings, then the notices; of each kind the first ones and the total.
void printFindings(const BookFindings& findings, std::ostream& out);

/// Prints the figures of a book, one per line. They are the same for two equal books.
void printTotals(const BookCheck& check, std::ostream& out);

/// With up to four decimals: 1.234,56 or 1.234,5678.
[[nodiscard]] QString exactAmountText(Currency amount);

} // namespace lorvan
