#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The cheques of the period. In detail: each one, newest date first, then by code and order of entry, with totals. In
/// summary: the memorandum amounts, one row for each date and pair of income and expense amounts, in that order.
/// Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument chequeReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
