#pragma once

#include "cashbook/day_seal.h"
#include "platform/engine/sliced_reading.h"
#include "proof/seal_chain.h"
#include "proof/trail_pass.h"

#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lorvan {

/// Verifies seals and journal of one state of a book, in slices: both chains, and whether each sealed day holds what
/// was sealed. Its steps are called in this order, each until it returns true.
class SealReading {
public:
    /// `book` has both databases; one without seals and journal has no faults.
    explicit SealReading(Connection& book)
        : m_book(book)
    {
    }

    [[nodiscard]] bool readSeals(Deadline deadline);

    /// What all movements of a sealed day are to be added to, in the order in which they are stored; null for any other
    /// day. Valid until the days are compared.
    [[nodiscard]] ContentDigest* contentOf(std::int64_t day);

    /// Compares the days once all movements have been taken. A day that looks altered is read again by itself.
    [[nodiscard]] bool compareDays(Deadline deadline);
    [[nodiscard]] bool readJournal(Deadline deadline);

    [[nodiscard]] std::int64_t journalRows() const { return m_journalRows; } ///< Read so far.
    [[nodiscard]] std::int64_t seals() const { return static_cast<std::int64_t>(m_seals.size()); }
    /// After the last step; none without any.
    [[nodiscard]] BookFindings findings(const CarriedBalances& balances) const;

private:
    struct Day {
        const DaySeal* seal;
        ContentDigest content;
    };

    [[nodiscard]] bool holds(Day& day) const;
    [[nodiscard]] std::vector<TrailFault> alteredDays() const;
    [[nodiscard]] std::optional<TrailFault> movedCarry(
        const CarriedBalances& balances, const std::vector<TrailFault>& altered) const;

    Connection& m_book;
    std::vector<DaySeal> m_seals;
    std::unordered_map<std::int64_t, Day> m_days; ///< By yyyymmdd, those that were not compared yet.
    std::vector<TrailFault> m_altered;
    std::vector<TrailFault> m_openings;
    std::optional<TrailPass> m_pass;
    std::int64_t m_journalRows = 0;
    std::int64_t m_nextRow = std::numeric_limits<std::int64_t>::min(); ///< Of the journal.
};

} // namespace lorvan
