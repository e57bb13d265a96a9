#pragma once

#include "cashbook/counted_cash.h"
#include "cashbook/day_seal.h"
#include "journal/journal.h"

#include <cstdint>
#include <map>
#include <vector>

namespace lorvan {

/// The key under which the acceptance of a day's count keeps it.
inline constexpr auto acceptedCount = "counted";

/// Holds the cash that was counted, as it is stored with the seals, against the journal: it must be what the day's last
/// row tells. Of a day without such a row nothing is claimed. Takes the rows of the journal in the order of their ids.
class CountAudit {
public:
    void take(const JournalRow& row);

    /// The days whose count differs, in order.
    [[nodiscard]] std::vector<std::int64_t> altered(const std::vector<DaySeal>& seals) const;

private:
    std::map<std::int64_t, CountedCash> m_counts; ///< By day.
};

} // namespace lorvan
