#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The cheques of the period. Detailed form: each cheque, newest date first, then by code and order of entry, with
/// totals. Summary form: the memorandum amounts, one row for each combination of date, income and expense amount, in
/// that order. Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument chequeReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
