#include "preview/report_printing.h"

#include "platform/work_watch.h"
#include "preview/print_system.h"
#include "report_pages.h"
#include "report_pdf.h"

#include <QBuffer>
#include <QPdfWriter>

namespace lorvan {
namespace {

constexpr int twipsInInch = 1440;

PageOutcome writePages(
    ReportPages& pages, QIODevice& device, std::optional<int> page, const BackgroundRun::Progress& progress)
{
    if (!page)
        return writePdf(pages, device, progress);
    pages.layOut();
    QPdfWriter writer(&device);
    writer.setResolution(twipsInInch);
    return printPages(pages, writer, {*page, *page}, progress);
}

} // namespace

bool printReport(QWidget* window, BackgroundRun& run, const ReportPages& shown, const PrintJob& job)
{
    const ProgressTexts texts{job.title, QStringLiteral("Αποστολή στον εκτυπωτή…"), QStringLiteral("Σελίδες")};
    return run.run(window, texts, [&shown, &job](const BackgroundRun::Progress& progress) {
        ReportPages pages(shown.document(), shown.carries());
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        if (writePages(pages, pdf, job.page, progress) == PageOutcome::Cancelled)
            return false;
        decideOrGiveUp();
        printPdf(job.printer, job.title, pdf.data());
        return true;
    });
}

} // namespace lorvan
