#pragma once

#include "proof/findings_text.h"

#include <ostream>

namespace lorvan {

/// Prints in Greek what a check has found; of each kind the first twenty.
void printFindings(const BookFindings& findings, std::ostream& out);

/// Prints the figures of a book, one per line.
void printTotals(const BookCheck& check, std::ostream& out);

} // namespace lorvan
