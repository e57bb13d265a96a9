#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "reports/report_catalogue.h"
#include "reports/report_omissions.h"

namespace lorvan {

class BookFiles;
class KeyRing;

/// A report as requested by the user.
struct ReportRequest {
    Report report = Report::DailyCash;
    QString title; ///< The title of its window.
    ReportInputs inputs;
    bool offersCodes = true; ///< Whether there was a code to choose.
    std::vector<CodeGroup> offeredGroups = {}; ///< The groups in the order of the list they were chosen from.
};

/// A suggested name for the file in which the report is saved, without extension: its title and what it covers.
[[nodiscard]] QString suggestedFileName(const ReportRequest& request);

/// Builds the report on a connection of its own, so that it may run in any thread. `progress` is also called during
/// long searches, with the number of rows so far; if it cancels there, the report ends with an SqlError. Throws
/// SqlError, CurrencyOverflow, ReportCancelled. An unknown report has no items.
[[nodiscard]] ReportDocument buildReport(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

/// What the report leaves out, see reportOmissions(), found in the same way.
[[nodiscard]] std::vector<ReportOmission> findOmissions(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

} // namespace lorvan
