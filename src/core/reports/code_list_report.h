#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The movement codes with description and group, either all or only the active ones, sorted by code, or by description
/// or group in Greek order and then by code. One statement. Throws SqlError, ReportCancelled.
[[nodiscard]] ReportDocument codeListReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
