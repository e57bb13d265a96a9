#pragma once

#include "platform/currency.h"

#include <QDate>

#include <cstdint>
#include <map>

namespace lorvan {

class Connection;

/// The rows of `opening_difference`: for a day on which the cash was counted, by how much it differed from the previous
/// balance plus the day's movements. A book without the table has none. All functions throw SqlError; those that write
/// run inside the caller's transaction.

/// Amounts by day, as stored.
using OpeningDifferences = std::map<std::int64_t, Currency>;

[[nodiscard]] OpeningDifferences openingDifferences(Connection& main);

/// The sum over the days after `day` up to and including `last`; from the first day on if `day` is invalid. One index
/// look-up. Throws CurrencyOverflow.
[[nodiscard]] Currency openingDifferenceBetween(Connection& main, QDate day, QDate last);

/// Adds rows, making the table if there is none. The caller records it in the journal.
void addOpeningDifferences(Connection& main, const OpeningDifferences& differences);

} // namespace lorvan
