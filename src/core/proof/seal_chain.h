#pragma once

#include "audit/book_findings.h"
#include "cashbook/day_seal.h"
#include "proof/carry_audit.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace lorvan {

class Connection;
class TrailPass;

/// Something that journal and seals contradict: it was changed by another program or an earlier release.
struct TrailFault {
    FindingKind kind; ///< From JournalBroken to GroupAltered.
    /// The row's number: of the journal, the seal, the movement, the code or the group. Of missing seals the version
    /// that the journal tells of.
    std::int64_t key = 0;
    std::int64_t day = 0; ///< Of a seal or a movement, yyyymmdd; 0 if it is not known.
    QString found = {}; ///< Of a row or seals: a hash of what stands there, which the acceptance keeps.
    Currency moved = {}; ///< Of a carried balance: by how much.
    std::int64_t rows = 1; ///< Broken rows or seals from this one on, or sealed days whose balance moved like that.
};

[[nodiscard]] Finding findingOf(const TrailFault& fault);

/// The key under which the acceptance of a carried balance keeps by how much it had moved.
inline constexpr auto acceptedCarry = "carried";

/// The hashes of the journal's rows that the seals name.
[[nodiscard]] std::set<QString> journalRowsOf(const std::vector<DaySeal>& seals);

/// The last seal of each day, by the day; of those without a calendar date, which are broken, none. `seals` must stay
/// as they are.
[[nodiscard]] std::map<std::int64_t, const DaySeal*> lastSeals(const std::vector<DaySeal>& seals);

/// Adds a sealed day to the fault of those whose carried balance has moved without a change that explains it, days
/// being taken in order; false if it has not.
bool noteUnexplained(const CarryAudit& carries, const DaySeal& seal, const CarriedBalances::Carried& now,
    std::optional<TrailFault>& moved);

/// The days whose opening differences are not those that the journal tells of.
[[nodiscard]] std::vector<TrailFault> alteredOpenings(Connection& book);

/// Where the chains of the journal and of all seals are broken, each break with all that is broken behind it, and which
/// seals are missing. The journal was read for them.
[[nodiscard]] std::vector<TrailFault> brokenLinks(const std::vector<DaySeal>& seals, const TrailPass& pass);

} // namespace lorvan
