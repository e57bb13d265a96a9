#pragma once

#include "search/search_hits.h"
#include "search/search_match.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <vector>

namespace lorvan {

class Connection;

/// Looks through all movements for those that a query accepts, from the greatest key to the least, in slices: between
/// them the file is not locked, and other programs may write. What they add meanwhile is not looked at.
class MovementSearch {
public:
    /// How long a slice holds the file, at most.
    static constexpr std::chrono::milliseconds slice{50};

    /// A query without terms finds nothing.
    explicit MovementSearch(SearchQuery query);

    /// What the next slice has found; ends early once a StopCheck says no. Throws SqlError; the same movements can then
    /// be looked through again.
    [[nodiscard]] SearchBatch readOn(Connection& main);
    [[nodiscard]] bool isAtEnd() const { return m_state.isAtEnd; }

    /// How far the keys were looked through, both roughly the number of movements: `whole` is 0 until the first slice.
    [[nodiscard]] std::int64_t done() const { return m_state.greatest - std::max<std::int64_t>(m_state.next, 0); }
    [[nodiscard]] std::int64_t whole() const { return m_state.greatest; }

    /// One for each term of the query, of the movements looked through so far.
    [[nodiscard]] const std::vector<ReadingCounts>& counts() const { return m_state.counts; }

private:
    struct State {
        std::int64_t next = std::numeric_limits<std::int64_t>::max(); ///< No greater key is looked at.
        std::int64_t greatest = 0; ///< The first key that was looked at.
        std::vector<ReadingCounts> counts;
        bool isAtEnd = false;
    };

    void readSlice(Connection& main, State& state, SearchBatch& batch);

    SearchMatch m_match;
    State m_state;
    bool m_isFirst = true;
};

} // namespace lorvan
