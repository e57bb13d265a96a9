#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "reports/report_catalogue.h"
#include "reports/report_omissions.h"

namespace lorvan {

class BookFiles;
class KeyRing;

/// A report as it was asked for.
struct ReportRequest {
    Report report = Report::DailyCash;
    QString title; ///< Of its window.
    ReportInputs inputs;
    bool offersCodes = true; ///< There was a code to choose.
    std::vector<CodeGroup> offeredGroups = {}; ///< The groups in the order of the list they were chosen from.
};

/// A name for the file in which the report is saved, without an ending: its title and what it covers.
[[nodiscard]] QString suggestedFileName(const ReportRequest& request);

/// Builds the report over a connection of its own, so that it may run on any thread. The progress is asked during long
/// searches too, with the rows that there are by then; given up there, the report ends with an SqlError. Throws
/// SqlError, CurrencyOverflow, ReportCancelled. An unknown report has no items.
[[nodiscard]] ReportDocument buildReport(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

/// What the report does not tell, see reportOmissions(), found in the same way.
[[nodiscard]] std::vector<ReportOmission> findOmissions(
    const ReportRequest& request, const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

} // namespace lorvan
