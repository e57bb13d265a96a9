#pragma once

#include <QDate>

#include <cstdint>

namespace lorvan {

class Book;

/// Two years of working days, as they fall on average.
inline constexpr int demoWorkingDays = 604;

/// The last so many working days of the sample book stay open, a week of them; all earlier ones are closed.
inline constexpr int demoOpenDays = 6;

/// Fills an empty book with the sample shop: its last movements are of the last working day before `today`. The same
/// seed gives the same content apart from the dates. One transaction for each of the two files. Throws SqlError.
void fillDemoBook(Book& book, QDate today, std::uint64_t seed);

} // namespace lorvan
