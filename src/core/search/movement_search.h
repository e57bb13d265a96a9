#pragma once

#include "search/search_hits.h"
#include "search/search_match.h"

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

    /// One for each term of the query, of the movements looked through so far.
    [[nodiscard]] const std::vector<ReadingCounts>& counts() const { return m_state.counts; }

private:
    struct State {
        std::int64_t next = std::numeric_limits<std::int64_t>::max(); ///< No greater key is looked at.
        std::vector<ReadingCounts> counts;
        bool isAtEnd = false;
    };

    void readSlice(Connection& main, State& state, SearchBatch& batch);

    SearchMatch m_match;
    State m_state;
    bool m_isFirst = true;
};

} // namespace lorvan
