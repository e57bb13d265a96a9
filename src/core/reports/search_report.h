#pragma once

#include "document/report_document.h"
#include "document/report_progress.h"
#include "search/search_query.h"

namespace lorvan {

class BookFiles;
class Connection;
class KeyRing;

/// The movements that a query finds, the newest day first, with their sums, in landscape. `heading` is the book's name.
/// The file is locked for moments only; what is added meanwhile is left out. Throws SqlError, ReportCancelled.
[[nodiscard]] ReportDocument searchReport(
    Connection& main, const SearchQuery& query, const QString& heading, const ReportProgress& progress = {});

/// The same on a connection of its own, so that it may run in any thread.
[[nodiscard]] ReportDocument buildSearchReport(const SearchQuery& query, const QString& heading, const BookFiles& files,
    KeyRing& keys, const ReportProgress& progress);

} // namespace lorvan
