#pragma once

#include "search/search_hits.h"
#include "search/search_query.h"

#include <QString>

namespace lorvan {

/// A count with its thousands grouped: 1.234.
[[nodiscard]] QString searchCountText(std::int64_t count);

/// "1 κίνηση", "1.234 κινήσεις".
[[nodiscard]] QString movementCountText(std::int64_t count);

/// How many movements were found, and their sums.
[[nodiscard]] QString searchTotalsText(const SearchTotals& totals);

/// A text as typed, in quotes, cut if it is long.
[[nodiscard]] QString searchedText(const QString& text);

/// What was not understood; empty if that is nothing.
[[nodiscard]] QString notUnderstoodText(const SearchQuery& query);

/// What was searched for, each term as it was read.
[[nodiscard]] QString searchQueryText(const SearchQuery& query);

} // namespace lorvan
