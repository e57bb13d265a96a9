#pragma once

#include "platform/currency.h"

#include <QDate>

#include <unordered_map>
#include <vector>

namespace lorvan {

class Connection;

/// Amounts of one movement, or their sums over several.
struct MovementSums {
    Currency income;
    Currency expense;
    Currency memorandum;

    MovementSums& operator+=(const MovementSums& other);
};

/// The sums of each code over the movements from `start` (invalid: the first one) to `end`; of these codes, or without
/// any of all that the catalogue holds at least. A code without such movements has none.
///
/// One statement, which reads an index of code, date and amounts if the book has one, else the movements. Throws
/// SqlError, CurrencyOverflow.
[[nodiscard]] std::unordered_map<qint32, MovementSums> sumsByCode(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& codes);

} // namespace lorvan
