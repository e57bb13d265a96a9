#include "reports/report_pdf.h"

#include "reports/report_pages.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>

namespace lorvan {

namespace {

constexpr int twipsInInch = 1440;

void setPaper(QPagedPaintDevice& device, const ReportDocument& document)
{
    const bool isPortrait = document.page().orientation == ReportOrientation::Portrait;
    QPageLayout layout(QPageSize(QPageSize::A4), isPortrait ? QPageLayout::Portrait : QPageLayout::Landscape, {});
    layout.setMode(QPageLayout::FullPageMode); // the document's margins count from the edge of the paper
    device.setPageLayout(layout);
}

} // namespace

PageOutputError::PageOutputError(const QString& reason)
    : std::runtime_error(reason.toStdString())
{
}

PageRange allPages(ReportPages& pages)
{
    pages.layOut();
    return {0, pages.pageCount() - 1};
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
    QPdfWriter writer(&device);
    writer.setResolution(twipsInInch);
    writer.setTitle(pages.document().header().trimmed());
    writer.setCreator(QStringLiteral("Lorvan"));
    return printPages(pages, writer, allPages(pages), progress);
}

PageOutcome savePdf(ReportPages& pages, const QString& path, const PageProgress& progress)
{
    // Written to memory first: the PDF writer does not notice a full disk.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (writePdf(pages, buffer, progress) == PageOutcome::Cancelled)
        return PageOutcome::Cancelled;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(buffer.data()) != buffer.size() || !file.commit())
        throw PageOutputError(file.errorString());
    return PageOutcome::Done;
}

} // namespace lorvan
