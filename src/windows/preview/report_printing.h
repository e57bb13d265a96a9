#pragma once

#include "document/report_document.h"
#include "preview/background_run.h"

#include <QString>

#include <optional>

namespace lorvan {

/// A report as it goes to paper.
struct PrintJob {
    QString printer;
    QString title;
    std::optional<int> page = {}; ///< Counted from 0; without it all pages.
};

/// Hands the report over to the printer, without a question. True when the print system has taken all of it, false when
/// the user has given it up. Throws PrintJobError, PageOutputError.
[[nodiscard]] bool printReport(
    QWidget* window, BackgroundRun& run, const ReportDocument& document, const PrintJob& job);

} // namespace lorvan
