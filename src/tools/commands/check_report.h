#pragma once

#include "cashbook/book_check.h"

#include <ostream>

namespace lorvan {

/// What a check has found, in Greek: the findings, then the notices; of each kind the first and the count of all.
void printFindings(const BookFindings& findings, std::ostream& out);

/// The figures of a book, one on a line. The lines hold nothing that differs between two equal books.
void printTotals(const BookCheck& check, std::ostream& out);

/// To the last ten-thousandth: 1.234,56 or 1.234,5678.
[[nodiscard]] QString exactAmountText(Currency amount);

} // namespace lorvan
