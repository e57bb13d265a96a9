#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

#include <set>

namespace lorvan {

class Connection;

/// The days whose cash is closed; invalid dates are ignored. Throws SqlError.
[[nodiscard]] std::set<QDate> closedCashDays(Connection& auxiliary);

/// The calendar days of the period that are not closed, without its last day. A period that ends after the last closed
/// day or begins before the first one gets a line with that day instead. One statement on the auxiliary database.
/// Throws SqlError, ReportCancelled.
[[nodiscard]] ReportDocument unclosedDaysReport(
    Connection& auxiliary, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
