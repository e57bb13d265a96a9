#pragma once

#include "proof/book_findings.h"

#include <QDate>

#include <cstdint>
#include <vector>

namespace lorvan {

class Authority;
class Connection;

/// Something that journal and seals contradict: it was changed by another program or an earlier release.
struct TrailFault {
    FindingKind kind; ///< From JournalBroken to GroupAltered.
    std::int64_t key = 0; ///< The row's number: of the journal, the seal, the movement, the code or the group.
    std::int64_t day = 0; ///< Of a seal or a movement, yyyymmdd; 0 if it is not known.
};

/// A day whose carried balance differs from the one that was printed with its seal, since an earlier day was changed.
struct MovedCarry {
    std::int64_t day = 0;
    Currency printed;
    Currency carried;
};

struct TrailAudit {
    std::int64_t changes = 0; ///< Rows of the journal.
    std::int64_t seals = 0;
    std::vector<TrailFault> faults; ///< In the order of their kinds.
    std::vector<MovedCarry> moved;
    std::int64_t accepted = 0; ///< Findings that were accepted earlier.

    [[nodiscard]] BookFindings findings() const;
};

/// Verifies journal and seals: each link of both chains, the days that were sealed, and the movements, codes and groups
/// whose state the journal tells; of all others nothing is claimed. `book` has both databases. Inside the caller's
/// transaction. Throws SqlError.
[[nodiscard]] TrailAudit auditTrail(Connection& book);

/// Records all faults in the journal as accepted, with what is there now, and seals altered days again; they are no
/// faults any more. One transaction. Returns how many. Throws NotPermitted without the right to change cash records,
/// and SqlError.
std::int64_t acceptFaults(Connection& book, const Authority& authority);

} // namespace lorvan
