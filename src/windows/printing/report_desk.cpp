#include "printing/report_desk.h"

#include "preview/ektypvsh.h"
#include "printing/report_questions.h"

namespace lorvan {

ReportDesk::ReportDesk(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
{
}

ReportDesk::~ReportDesk() = default;

void ReportDesk::print(ReportRequest request, QWidget* window)
{
    m_omissions.cancel();
    m_frame.reset();
    auto frame = std::make_unique<Ektypvsh>(m_printers, m_saver);
    ReportDocument document;
    if (!askQuestions(request, m_files, m_keys, window) || m_isClosed || !build(request, window, document))
        return;
    frame->open(std::move(document), request.title, suggestedFileName(request));
    m_frame = std::move(frame);
    m_frame->show();
    findOmissions(request);
}

/// Runs beside the preview, so that its first page waits for nothing.
void ReportDesk::findOmissions(const ReportRequest& request)
{
    m_omissions.start(
        [this, request](const std::function<bool()>& goesOn) {
            return lorvan::findOmissions(request, m_files, m_keys, [&goesOn](int) { return goesOn(); });
        },
        [this](const std::vector<ReportOmission>& omissions) { m_frame->tell(omissions); });
}

bool ReportDesk::build(const ReportRequest& request, QWidget* window, ReportDocument& document)
{
    const ProgressTexts texts{request.title, QStringLiteral("Ετοιμάζεται η εκτύπωση…"), QStringLiteral("Γραμμές")};
    return m_run.run(window, texts, [this, &request, &document](const BackgroundRun::Progress& progress) {
        document = buildReport(request, m_files, m_keys, [&progress](int rows) { return progress(rows, 0); });
        return true;
    });
}

void ReportDesk::close()
{
    m_isClosed = true;
    m_run.cancel();
    m_omissions.cancel();
    if (m_frame)
        m_frame->unload();
}

} // namespace lorvan
