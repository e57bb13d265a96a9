#pragma once

#include <cstdint>
#include <functional>

namespace lorvan {

class Book;
struct LegacyBook;

/// Stores all rows in an empty book, each with its old number, one transaction for each of the two files. The book has
/// the tables of the current version but keeps the older one's version number, so that the program still asks the
/// questions of its upgrade; an opening balance that is visible only in the balances is recorded as
/// adoptOpeningBalance() does. `advance` is called with the number of rows stored so far. Throws SqlError.
void storeLegacyBook(
    const LegacyBook& legacy, Book& book, const std::function<void(std::uint64_t rowsStored)>& advance);

} // namespace lorvan
