#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <stdexcept>
#include <vector>

class QIODevice;
class QPagedPaintDevice;

namespace lorvan {

class ReportDocument;
class ReportPages;

/// Pages from `first` to `last`, both counted from 0 and both included.
struct PageRange {
    int first = 0;
    int last = 0;
};

/// Called after each page with the number of pages done and the total, and with zeros while the pages are still being
/// laid out; returning false cancels. A print job contains the pages done so far: if you cancel, abort the printer
/// first.
using PageProgress = std::function<bool(int done, int all)>;

enum class PageOutcome { Done, Cancelled };

/// The pages could not be printed or written. An existing file of that name is unchanged.
class PageOutputError : public std::runtime_error {
public:
    explicit PageOutputError(const QString& reason);
};

/// Draws the pages on a printer or any other paged device, whose paper and orientation are set first. Pages beyond the
/// end of the document are ignored. Throws PageOutputError if the device cannot start or cannot begin a new page.
[[nodiscard]] PageOutcome printPages(
    const ReportPages& pages, QPagedPaintDevice& device, PageRange range, const PageProgress& progress);

/// Writes the whole document as a PDF with searchable text and embedded fonts.
[[nodiscard]] PageOutcome writePdf(ReportPages& pages, QIODevice& device, const PageProgress& progress);

/// Writes several documents one after the other as one PDF, each from a new page on. Returns the page on which each
/// begins, from 1; no value if it was cancelled. `progress` counts the documents.
[[nodiscard]] std::optional<std::vector<int>> bindPdf(const std::vector<ReportDocument>& documents,
    const QString& title, QIODevice& device, const PageProgress& progress);

/// The first one into a file, which is written completely or not at all: after cancelling or failing, an earlier file
/// of that name is unchanged. Throws PageOutputError with the system's message, and GivenUp: see decideOrGiveUp().
[[nodiscard]] PageOutcome savePdf(ReportPages& pages, const QString& path, const PageProgress& progress);

} // namespace lorvan
