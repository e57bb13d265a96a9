#pragma once

#include "proof/seal_chain.h"

#include <QDate>

#include <cstdint>
#include <vector>

namespace lorvan {

class Connection;

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

/// Verifies journal and seals: each link of both chains, the seals that the journal tells of, the days that were
/// sealed, and the movements, codes and groups whose state the journal tells; of all others nothing is claimed. `book`
/// has both databases. Inside the caller's transaction. Throws SqlError.
[[nodiscard]] TrailAudit auditTrail(Connection& book);

} // namespace lorvan
