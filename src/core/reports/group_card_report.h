#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// Three columns side by side (ReportInputs::cardColumns), each with the period's movements in its groups, in the order
/// of groupMovements(), and their total. Movements that differ only in their memorandum amount count once. One read
/// transaction. Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument groupCardReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
