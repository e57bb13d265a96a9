#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "platform/currency.h"

namespace lorvan {

class Connection;

/// How the detailed form prints a memorandum amount: to the nearest whole euro, half to even.
[[nodiscard]] Currency wholeEuros(Currency amount);

/// The movements of the period by code, of the chosen codes or of all.
///
/// In detail: each movement, by code, newest date first, then in the order of entry, with a subtotal for each code; the
/// memorandum amounts are rounded to whole euros, half to even, before they are summed. In summary: a line of exact
/// sums for each code and each description that it has in the catalogue; a code without a row there is left out.
/// One read transaction. Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument movementsByCodeReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
