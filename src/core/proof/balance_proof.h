#pragma once

#include "proof/book_findings.h"

#include <chrono>

namespace lorvan {

class Connection;

/// What holding all cash days against all movements has shown.
struct BalanceProof {
    std::int64_t movements = 0;
    std::int64_t days = 0; ///< With a cash day, a movement or both.
    std::int64_t wrongDays = 0; ///< Whose row is missing, repeated or wrong.
    BookFindings findings; ///< Of the cash days alone.

    /// False also if the balances contain an amount that neither the movements nor a recorded opening difference
    /// explain.
    [[nodiscard]] bool isProved() const;
};

/// How a proof keeps out of the way of those who change the book.
struct ProofPace {
    std::chrono::milliseconds slice{40}; ///< After that long the lock is given back, with the row that is being read.
    int hurried = 3; ///< So often it begins again at once after a change,
    std::chrono::milliseconds quiet{60'000}; ///< then only when nothing was changed for that long.
    std::chrono::milliseconds betweenLooks{1'000}; ///< While it waits for that.
};

/// Reads all movements once, in the order in which they are stored, and compares their sums with the cash days (see
/// auditCashDays(), which is not the code that carries balances). The book is read in slices, between which others may
/// write; if one of them did, the proof begins again. Amounts count as the program reads them. If a sum is out of
/// range, that is the only finding.
///
/// Throws SqlError: of kind Interrupted if a StopCheck says no.
[[nodiscard]] BalanceProof proveBalances(Connection& main, const ProofPace& pace = {});

} // namespace lorvan
