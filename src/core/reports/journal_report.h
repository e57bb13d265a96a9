#pragma once

#include "document/report_document.h"
#include "document/report_progress.h"
#include "journal/journal_filter.h"

namespace lorvan {

class BookFiles;
class Connection;
class KeyRing;

/// The changes that the filter accepts, newest first, in landscape; what was changed stands in one line. `heading` is
/// the book's name. The file is locked for moments only; what is added meanwhile is left out. Throws SqlError,
/// ReportCancelled.
[[nodiscard]] ReportDocument journalReport(
    Connection& main, const JournalFilter& filter, const QString& heading, const ReportProgress& progress = {});

/// The same on a connection of its own, so that it may run in any thread.
[[nodiscard]] ReportDocument buildJournalReport(const JournalFilter& filter, const QString& heading,
    const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

} // namespace lorvan
