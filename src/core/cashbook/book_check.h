#pragma once

#include "cashbook/book_findings.h"
#include "cashbook/movement_audit.h"

#include <optional>

namespace lorvan {

class Connection;

/// What a book holds, so that two books can be compared. Equal books have equal figures, wherever their rows lie.
struct BookTotals {
    MovementTotals movements;
    std::int64_t cashDays = 0; ///< Rows of each table from here on.
    std::int64_t codes = 0;
    std::int64_t groups = 0;
    std::int64_t closedDays = 0;
    std::int64_t users = 0;
    std::int64_t firstDay = 0; ///< As stored; 0 in a book without cash days.
    std::int64_t lastDay = 0;
    Currency lastBalance; ///< As stored.
};

struct BookCheck {
    BookFindings findings;
    BookTotals totals; ///< Sums of nothing when FindingKind::SumTooLarge was found.
};

/// What stands in both files beside the book's own tables, who may read them, and, where nothing forbids to read the
/// tables, the engine's integrity check, which reads and authenticates every page in use. `book` has the auxiliary
/// database attached as `auxiliary`. Throws SqlError when it cannot be carried out, also where the disk does not read.
[[nodiscard]] BookFindings checkFiles(Connection& book, const CheckProgress& progress);

/// Everything in a book that can be held against something else, and its sums, from one read transaction: both files as
/// they were at one moment, whoever writes meanwhile. `book` has the auxiliary database attached as `auxiliary`. Throws
/// SqlError when it cannot be read.
[[nodiscard]] BookCheck checkContent(Connection& book, const CheckProgress& progress);

/// Movements and cash days against each other, for checkContent() and the repair. Runs inside the caller's transaction.
struct CashAudit {
    MovementAudit movements;
    std::optional<CashDayAudit> days; ///< None when a sum is too large.
    BookFindings dayFindings; ///< Those that no comparison tells: rows without a date.
};
[[nodiscard]] CashAudit auditCash(Connection& book, const CheckProgress& progress);

} // namespace lorvan
