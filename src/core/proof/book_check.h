#pragma once

#include "audit/book_findings.h"
#include "audit/movement_audit.h"

#include <optional>

namespace lorvan {

class Connection;

/// The contents of a book in figures, so that two books can be compared. Equal books have equal figures, whatever the
/// order of their rows.
struct BookTotals {
    MovementTotals movements;
    std::int64_t cashDays = 0; ///< From here on: number of rows in each table.
    std::int64_t codes = 0;
    std::int64_t groups = 0;
    std::int64_t closedDays = 0;
    std::int64_t users = 0;
    std::int64_t firstDay = 0; ///< As stored; 0 if there are no cash days.
    std::int64_t lastDay = 0;
    Currency lastBalance; ///< As stored; without a cash day the opening balance.
};

struct BookCheck {
    BookFindings findings;
    BookTotals totals; ///< Meaningless if FindingKind::SumTooLarge was found.
};

/// Checks what both files contain besides the book's own tables, and who may read them. If the tables can be read
/// safely, it also runs the engine's integrity check, which reads and authenticates every page in use. `book` has the
/// auxiliary database attached as `auxiliary`. Throws SqlError if the check cannot be carried out, also if the disk
/// cannot be read.
[[nodiscard]] BookFindings checkFiles(Connection& book, const CheckProgress& progress);

/// Whether the content can be checked after that.
[[nodiscard]] bool isReadable(const BookFindings& files);

/// Checks everything in a book that can be compared with something else, and adds up its totals, in one read
/// transaction: both files as they were at one moment, whoever else is writing. `book` has the auxiliary database
/// attached as `auxiliary`. Throws SqlError if the book cannot be read.
[[nodiscard]] BookCheck checkContent(Connection& book, const CheckProgress& progress);

/// Compares cash days and movements, for checkContent() and the repair. Runs inside the caller's transaction.
struct CashAudit {
    MovementAudit movements;
    std::optional<CashDayAudit> days; ///< No value if a sum is too large.
    BookFindings dayFindings; ///< Findings that do not come from the comparison: rows without a date.
};
[[nodiscard]] CashAudit auditCash(Connection& book, const CheckProgress& progress);

} // namespace lorvan
