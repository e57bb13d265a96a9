#pragma once

#include "journal/journal_filter.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace lorvan {

class Connection;
class Statement;

/// Reads the journal from its end to its beginning, row by row of those that a filter accepts, in slices: between them
/// the file is not locked, and other programs may write. Rows that are added in the meantime are not among them.
class JournalReading {
public:
    /// How long a slice holds the file, at most.
    static constexpr std::chrono::milliseconds slice{50};

    explicit JournalReading(JournalFilter filter);

    /// The next rows, newest first, at most `most`; fewer, or none, if they are not found within a slice or the journal
    /// ends. Throws SqlError; the same rows can then be read again. In a book without a journal it is at its end.
    [[nodiscard]] std::vector<JournalRow> readOn(Connection& main, std::size_t most);
    [[nodiscard]] bool isAtEnd() const { return m_isAtEnd; }

private:
    using Deadline = std::chrono::steady_clock::time_point;
    struct Found {
        std::vector<JournalRow> rows;
        std::int64_t next = 0;
        std::size_t nextOfKind = 0;
        bool isAtEnd = false;
    };

    void findRareKind(Connection& main);
    [[nodiscard]] Found readBackwards(Connection& main, std::size_t most, Deadline deadline) const;
    [[nodiscard]] Found readRareKind(Connection& main, std::size_t most, Deadline deadline) const;
    [[nodiscard]] Statement rowsFrom(Connection& main) const;

    const JournalMatch m_match;
    std::int64_t m_next = std::numeric_limits<std::int64_t>::max(); ///< No greater id is looked at.
    bool m_hasBegun = false;
    std::optional<std::vector<std::int64_t>> m_ofKind; ///< All rows of the wanted kind, if there are few; newest first.
    std::size_t m_nextOfKind = 0;
    bool m_isAtEnd = false;
};

} // namespace lorvan
