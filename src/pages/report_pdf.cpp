#include "report_pdf.h"

#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/work_watch.h"
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

/// What all PDF files have in common.
void describe(QPdfWriter& writer, const QString& title)
{
    writer.setResolution(twipsInInch);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Lorvan"));
}

/// Paints all pages of a document, the first one on the page that the device has begun.
void paintAll(QPainter& painter, QPagedPaintDevice& device, const ReportPages& pages)
{
    for (int page = 0; page < pages.pageCount(); ++page) {
        if (page > 0)
            device.newPage();
        pages.paintPage(painter, page);
    }
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
    describe(writer, QString(pages.document().header()).replace(u'|', u' ').trimmed());
    return printPages(pages, writer, {0, pages.pageCount() - 1}, progress);
}

std::optional<std::vector<int>> bindPdf(
    const std::vector<ReportDocument>& documents, const QString& title, QIODevice& device, const PageProgress& progress)
{
    QPdfWriter writer(&device);
    describe(writer, title);
    QPainter painter;
    std::vector<int> firstPages;
    int next = 1;
    for (const ReportDocument& document : documents) {
        ReportPages pages(document);
        if (!layOutAll(pages, progress))
            return std::nullopt;
        setPaper(writer, document);
        if (next == 1 ? !painter.begin(&writer) : !writer.newPage())
            throw PageOutputError(QStringLiteral("Το PDF δεν γράφεται."));
        if (next == 1)
            painter.scale(writer.logicalDpiX() / double(twipsInInch), writer.logicalDpiY() / double(twipsInInch));
        paintAll(painter, writer, pages);
        firstPages.push_back(next);
        next += pages.pageCount();
        if (progress && !progress(static_cast<int>(firstPages.size()), static_cast<int>(documents.size())))
            return std::nullopt;
    }
    return firstPages;
}

PageOutcome savePdf(ReportPages& pages, const QString& path, const PageProgress& progress)
{
    // Written to memory first: the PDF writer does not notice a full disk.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (writePdf(pages, buffer, progress) == PageOutcome::Cancelled)
        return PageOutcome::Cancelled;
    decideOrGiveUp();
    try {
        replaceFile(path, buffer.data(), FileAccess::Umask);
    } catch (const FileError& error) {
        throw PageOutputError(error.reason());
    }
    return PageOutcome::Done;
}

} // namespace lorvan
