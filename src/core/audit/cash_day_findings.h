#pragma once

#include "audit/book_findings.h"
#include "audit/cash_day_audit.h"

namespace lorvan {

class Connection;

/// The rows of tameio whose date is an integer, and a finding for each row without a date. Runs inside the caller's
/// transaction. Throws SqlError.
[[nodiscard]] std::vector<CashDayRow> readCashDays(Connection& book, BookFindings& findings);

/// Known where the journal can tell that no opening difference was ever given.
[[nodiscard]] Opening isOpeningKnown(Connection& book);

/// What the comparison of cash days and movements has found: missing and repeated rows, wrong sums and balances, and
/// the opening differences as notices.
[[nodiscard]] BookFindings findingsOf(const CashDayAudit& audit);

} // namespace lorvan
