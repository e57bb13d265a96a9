#include "printing/report_desk.h"

#include "preview/ektypvsh.h"
#include "preview/held_key.h"
#include "printing/report_questions.h"

namespace lorvan {

ReportDesk::ReportDesk(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
{
    HeldKey::instance(); // knows the key that asks for a report
}

ReportDesk::~ReportDesk() = default;

void ReportDesk::print(ReportRequest request, QWidget* window)
{
    auto frame = newFrame();
    if (!askQuestions(request, m_files, m_keys, window) || m_isClosed)
        return;
    const auto build = [&request](const BookFiles& files, KeyRing& keys, const ReportProgress& progress) {
        return buildReport(request, files, keys, progress);
    };
    if (show(std::move(frame), {request.title, suggestedFileName(request), build}, window))
        findOmissions(request);
}

void ReportDesk::print(const DocumentRequest& request, QWidget* window)
{
    (void)show(newFrame(), request, window);
}

std::unique_ptr<Ektypvsh> ReportDesk::newFrame()
{
    m_omissions.cancel();
    m_frame.reset();
    auto frame = std::make_unique<Ektypvsh>(m_printers, m_saver);
    QObject::connect(frame.get(), &Ektypvsh::followed, [this, preview = frame.get()](const RowSubject& subject) {
        if (m_follow)
            m_follow(subject, preview);
    });
    QObject::connect(frame.get(), &Ektypvsh::unloaded, [this] { m_run.cancel(); }); // while its report is being built
    return frame;
}

bool ReportDesk::show(std::unique_ptr<Ektypvsh> frame, const DocumentRequest& request, QWidget* window)
{
    ReportDocument document;
    if (!build(request, window, *frame, document))
        return false;
    frame->open(std::move(document), request.title, request.fileName);
    m_frame = std::move(frame);
    m_frame->show();
    return true;
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

/// The first page of a long report is shown while the rest is built; what needs all pages waits behind the progress.
bool ReportDesk::build(const DocumentRequest& request, QWidget* window, Ektypvsh& frame, ReportDocument& document)
{
    const auto showBeginning = [&](const ReportDocument& beginning) {
        m_run.showMeanwhile([&frame, &request, beginning]() -> QWidget* {
            frame.begin(beginning, request.title);
            frame.show();
            return &frame;
        });
    };
    const ProgressTexts texts{request.title, QStringLiteral("Ετοιμάζεται η εκτύπωση…"), QStringLiteral("Γραμμές")};
    return m_run.run(window, texts, [&](const BackgroundRun::Progress& progress) {
        const auto goesOn = [&progress](int rows) { return progress(rows, 0); };
        document = request.build(m_files, m_keys, ReportProgress(goesOn, showBeginning));
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
