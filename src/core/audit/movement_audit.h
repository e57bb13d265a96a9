#pragma once

#include "audit/book_findings.h"
#include "audit/cash_day_audit.h"

#include <functional>

namespace lorvan {

class Connection;

/// Called from time to time with the number of rows done and the estimated total.
using CheckProgress = std::function<void(std::int64_t done, std::int64_t whole)>;

struct MovementTotals {
    std::int64_t rows = 0;
    Currency income;
    Currency expense;
    Currency memorandum;
    std::int64_t cheques = 0;
};

struct MovementAudit {
    BookFindings findings;
    SumsByDay sumsByDay; ///< By the stored integer, even if that is not a date.
    MovementTotals totals;
    /// A sum is out of range: none of the sums here means anything.
    bool sumTooLarge = false;
};

/// Reads all movements once, in the order in which they are stored, and compares each with its code. Amounts count as
/// the program reads them. Runs inside the caller's transaction. Throws SqlError.
[[nodiscard]] MovementAudit auditMovements(Connection& book, const CheckProgress& progress);

} // namespace lorvan
