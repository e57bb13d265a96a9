#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "platform/currency.h"

namespace lorvan {

class Connection;

/// How the detailed form prints a memorandum amount: rounded to whole euros, half to even.
[[nodiscard]] Currency wholeEuros(Currency amount);

/// The movements of the period by code, of the chosen codes or of all.
///
/// Detailed form: each movement, by code, newest date first, then in the order of entry, with a subtotal for each code;
/// the memorandum amounts are rounded to whole euros, half to even, before they are added up. Summary form: a line of
/// exact sums for each code, and for each description it has in the catalogue; a code that is not in the catalogue is
/// left out. One read transaction. Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument movementsByCodeReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
