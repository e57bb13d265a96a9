#pragma once

#include "preview/background_run.h"

#include <QString>

#include <optional>

namespace lorvan {

class ReportPages;

/// A report to be printed.
struct PrintJob {
    QString printer;
    QString title;
    std::optional<int> page = {}; ///< Counted from 0; no value means all pages.
};

/// Sends the report, divided into the pages that are shown, to the printer without asking. Returns true if the print
/// system has accepted all of it, false if the user has cancelled. Throws PrintJobError, PageOutputError.
[[nodiscard]] bool printReport(QWidget* window, BackgroundRun& run, const ReportPages& shown, const PrintJob& job);

} // namespace lorvan
