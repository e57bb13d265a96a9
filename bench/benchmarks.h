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

/// Makes a book of that many movements whose closed days are sealed, a hundred in one transaction, and prints how long
/// another program had to wait meanwhile; with or without a row in the journal for each movement. One that is there is
/// used as it is.
void ensureSealedBook(const BookFiles& files, int movements, bool isJournalled);

/// The proof of balances, seals and journal, on a book made for it.
[[nodiscard]] std::vector<Comparison> sealBenchmarks(const BookFiles& files);

/// Makes a book of a million movements, half of them of the one code that is moved; one that is there is used as it is.
void ensureCodesBook(const BookFiles& files);

/// A change of a code that takes all its movements along, on the book made for it.
[[nodiscard]] std::vector<Comparison> codeBenchmarks(const BookFiles& files);

/// Key derivation and opening.
[[nodiscard]] std::vector<Comparison> openingBenchmarks(const BookFiles& files);

} // namespace lorvan::bench
