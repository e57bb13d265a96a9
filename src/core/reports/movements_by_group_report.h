#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The movements of the period by group, of the chosen groups or of all, with a subtotal wherever the group number
/// changes; see groupMovements() for the selection and order of the movements. If two groups have the same name, their
/// rows therefore alternate from code to code. One read transaction. Throws SqlError, CurrencyOverflow,
/// ReportCancelled.
[[nodiscard]] ReportDocument movementsByGroupReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
