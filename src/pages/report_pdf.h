#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

class QIODevice;
class QPagedPaintDevice;

namespace lorvan {

class ReportPages;

/// Pages from `first` to `last`, both counted from 0 and both included.
struct PageRange {
    int first = 0;
    int last = 0;
};

/// Called after each page with the pages done and the pages in all, before that with zeros while the pages are laid
/// out; false cancels. The job of a printer holds the pages
/// done so far: whoever cancels aborts the printer first.
using PageProgress = std::function<bool(int done, int all)>;

enum class PageOutcome { Done, Cancelled };

/// The pages could not be printed or written. Nothing of a file that was there before is lost.
class PageOutputError : public std::runtime_error {
public:
    explicit PageOutputError(const QString& reason);
};

/// Draws the pages on a printer or any other paged device, of which paper and orientation are set first. Pages beyond
/// the document are left out. Throws PageOutputError where the device cannot start or go on to a new page.
[[nodiscard]] PageOutcome printPages(
    const ReportPages& pages, QPagedPaintDevice& device, PageRange range, const PageProgress& progress);

/// Writes the whole document as a PDF whose text can be searched and whose fonts are in it.
[[nodiscard]] PageOutcome writePdf(ReportPages& pages, QIODevice& device, const PageProgress& progress);

/// The same into a file, which appears whole or not at all: cancelled or failed, an earlier file of that name stays.
/// Throws PageOutputError with the system's own words.
[[nodiscard]] PageOutcome savePdf(ReportPages& pages, const QString& path, const PageProgress& progress);

} // namespace lorvan
