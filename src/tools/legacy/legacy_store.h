#pragma once

#include <cstdint>
#include <functional>

namespace lorvan {

class Book;
struct LegacyBook;

/// Stores all rows in an empty book, each with the number it had, one transaction for each of the two files. The book
/// has the tables of the current version and keeps the version number of the older one, so that the program still asks
/// what its upgrade asks; an opening balance that stands in its balances alone is kept as adoptOpeningBalance() does.
/// `advance` is told how many rows are stored so far. Throws SqlError.
void storeLegacyBook(
    const LegacyBook& legacy, Book& book, const std::function<void(std::uint64_t rowsStored)>& advance);

} // namespace lorvan
