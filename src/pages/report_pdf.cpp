#include "report_pdf.h"

#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "report_pages.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <chrono>

namespace lorvan {

namespace {

using namespace std::chrono_literals;

constexpr int twipsInInch = 1440;
constexpr auto betweenQuestions = 50ms;

void setPaper(QPagedPaintDevice& device, const ReportDocument& document)
{
    const bool isPortrait = document.page().orientation == ReportOrientation::Portrait;
    QPageLayout layout(QPageSize(QPageSize::A4), isPortrait ? QPageLayout::Portrait : QPageLayout::Landscape, {});
    layout.setMode(QPageLayout::FullPageMode); // the document's margins count from the edge of the paper
    device.setPageLayout(layout);
}

/// Lays out the remaining pages. False if cancelled.
bool layOutAll(ReportPages& pages, const PageProgress& progress)
{
    while (!pages.layOut(QDeadlineTimer(betweenQuestions))) {
        if (progress && !progress(0, 0))
            return false;
    }
    return true;
}

} // namespace

PageOutputError::PageOutputError(const QString& reason)
    : std::runtime_error(reason.toStdString())
{
}

PageOutcome printPages(
    const ReportPages& pages, QPagedPaintDevice& device, PageRange range, const PageProgress& progress)
{
    const int first = std::max(range.first, 0);
    const int last = std::min(range.last, pages.pageCount() - 1);
    if (first > last)
        return PageOutcome::Done;
    setPaper(device, pages.document());
    QPainter painter;
    if (!painter.begin(&device))
        throw PageOutputError(QStringLiteral("Ο εκτυπωτής δεν ξεκινά."));
    painter.scale(device.logicalDpiX() / double(twipsInInch), device.logicalDpiY() / double(twipsInInch));
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage())
            throw PageOutputError(QStringLiteral("Ο εκτυπωτής δεν δέχεται άλλη σελίδα."));
        pages.paintPage(painter, page);
        if (progress && !progress(page - first + 1, last - first + 1))
            return PageOutcome::Cancelled;
    }
    return PageOutcome::Done;
}

PageOutcome writePdf(ReportPages& pages, QIODevice& device, const PageProgress& progress)
{
    if (!layOutAll(pages, progress))
        return PageOutcome::Cancelled;
    QPdfWriter writer(&device);
    writer.setResolution(twipsInInch);
    writer.setTitle(QString(pages.document().header()).replace(u'|', u' ').trimmed());
    writer.setCreator(QStringLiteral("Lorvan"));
    return printPages(pages, writer, {0, pages.pageCount() - 1}, progress);
}

PageOutcome savePdf(ReportPages& pages, const QString& path, const PageProgress& progress)
{
    // Written to memory first: the PDF writer does not notice a full disk.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (writePdf(pages, buffer, progress) == PageOutcome::Cancelled)
        return PageOutcome::Cancelled;
    try {
        replaceFile(path, buffer.data(), FileAccess::Umask);
    } catch (const FileError& error) {
        throw PageOutputError(error.reason());
    }
    return PageOutcome::Done;
}

} // namespace lorvan
