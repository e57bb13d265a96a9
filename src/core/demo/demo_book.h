#pragma once

#include <QDate>

#include <cstdint>

namespace lorvan {

class Book;

/// An average two years of working days.
inline constexpr int demoWorkingDays = 604;

/// The number of last working days that stay open in the sample book, one week; all earlier ones are closed.
inline constexpr int demoOpenDays = 6;

/// Fills an empty book with the sample shop: its last movements are on the last working day before `today`. The same
/// seed gives the same content apart from the dates. One transaction for each of the two files. Throws SqlError.
void fillDemoBook(Book& book, QDate today, std::uint64_t seed);

} // namespace lorvan
