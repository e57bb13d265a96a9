#pragma once

#include "cashbook/book_findings.h"
#include "cashbook/cash_day_audit.h"

#include <functional>

namespace lorvan {

class Connection;

/// Told from time to time how many rows of how many are done; the second is an estimate.
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
    SumsByDay sumsByDay; ///< By the stored whole number, also where that is no date.
    MovementTotals totals;
    /// A sum left the range of amounts: no sum here means anything then.
    bool sumTooLarge = false;
};

/// Reads all movements once, in the order in which they are stored, and holds each against the codes. Amounts count as
/// the program reads them. Runs inside the caller's transaction. Throws SqlError.
[[nodiscard]] MovementAudit auditMovements(Connection& book, const CheckProgress& progress);

} // namespace lorvan
