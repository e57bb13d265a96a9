#pragma once

#include "platform/currency.h"

#include <QDate>

#include <unordered_map>
#include <vector>

namespace lorvan {

class Connection;

/// The amounts of one movement, or their sums over several.
struct MovementSums {
    Currency income;
    Currency expense;
    Currency memorandum;

    MovementSums& operator+=(const MovementSums& other);
};

/// The sums of each code over the movements from `start` (if invalid: from the first one) to `end`, for the given
/// codes. If none are given, for all codes, at least those in the catalogue. A code without such movements is left out.
///
/// One statement, which reads an index of code, date and amounts if the book has one, otherwise the movements. Throws
/// SqlError, CurrencyOverflow.
[[nodiscard]] std::unordered_map<qint32, MovementSums> sumsByCode(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& codes);

} // namespace lorvan
