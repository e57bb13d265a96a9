#pragma once

#include "audit/book_findings.h"
#include "platform/engine/sliced_reading.h"
#include "platform/work.h"

namespace lorvan {

class Connection;

/// What holding all cash days against all movements has shown.
struct BalanceProof {
    std::int64_t movements = 0;
    std::int64_t days = 0; ///< With a cash day, a movement or both.
    std::int64_t wrongDays = 0; ///< Whose row is missing, repeated or wrong, or whose seal is missing or does not hold.
    std::int64_t seals = 0;
    BookFindings findings; ///< Of the cash days, the seals and the journal's chain alone.

    /// False also if the balances contain an amount that neither the movements nor a recorded opening difference
    /// explain.
    [[nodiscard]] bool isProved() const;
};

using ProofPace = SlicePace;

/// Reads all movements once, in the order in which they are stored, and compares their sums with the cash days (see
/// auditCashDays(), which is not the code that carries balances). The book is read in slices, between which others may
/// write; if one of them did, the proof begins again. Amounts count as the program reads them. If a sum is out of
/// range, that is the only finding.
///
/// Throws SqlError: of kind Interrupted if a StopCheck says no.
[[nodiscard]] BalanceProof proveBalances(Connection& main, const ProofPace& pace = {});

/// The same for `book`, which has both databases, and in the same reading both chains, of the seals and of the journal,
/// and what each sealed day holds. What the journal tells of movements in open days, of codes and groups is left to
/// auditTrail(). After each slice `progress` is told about how many rows of how many were read. Throws the same.
[[nodiscard]] BalanceProof proveBalancesAndSeals(
    Connection& book, const ProofPace& pace = {}, const StepProgress& progress = {});

} // namespace lorvan
