#pragma once

#include "book/book_files.h"
#include "stopwatch.h"

#include <vector>

namespace lorvan::bench {

/// What a user does to a day, on the book at its oldest, middle and newest day. The comparisons keep the book open.
[[nodiscard]] std::vector<Comparison> movementBenchmarks(const BookFiles& files);

/// Reports over the whole book and over a month.
[[nodiscard]] std::vector<Comparison> reportBenchmarks(const BookFiles& files);

/// The check of a book's content, the engine's integrity check of its files not included, and the proof of its
/// balances.
[[nodiscard]] std::vector<Comparison> checkBenchmarks(const BookFiles& files);

/// Makes a book of a million movements, half of them of the one code that is moved; one that is there is used as it is.
void ensureCodesBook(const BookFiles& files);

/// A change of a code that takes all its movements along, on the book made for it.
[[nodiscard]] std::vector<Comparison> codeBenchmarks(const BookFiles& files);

/// Key derivation and opening.
[[nodiscard]] std::vector<Comparison> openingBenchmarks(const BookFiles& files);

} // namespace lorvan::bench
