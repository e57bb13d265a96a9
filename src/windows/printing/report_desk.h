#pragma once

#include "book/book_files.h"
#include "preview/background_run.h"
#include "preview/omission_search.h"
#include "preview/printers.h"
#include "preview/report_saver.h"
#include "reports/report_building.h"

#include <functional>
#include <memory>

namespace lorvan {

class Ektypvsh;
class KeyRing;

/// A document that is none of the reports of the list.
struct DocumentRequest {
    QString title; ///< The title of its window.
    QString fileName; ///< A suggested name for the file in which it is saved, without extension.
    /// Runs in a thread of its own and must not touch any window.
    std::function<ReportDocument(const BookFiles& files, KeyRing& keys, const ReportProgress& progress)> build;
};

/// Builds and shows reports: has one preview window at a time, the printers, and the folder in which reports are saved.
class ReportDesk {
public:
    /// The keys must outlive the desk.
    ReportDesk(BookFiles files, KeyRing& keys);
    ~ReportDesk();

    /// Closes the present preview window, asks the report's questions in front of `window`, builds the report and shows
    /// it in a new preview window. A report that fails or is cancelled leaves none. To be called while the busy pointer
    /// is shown. Throws what the report throws.
    void print(ReportRequest request, QWidget* window);
    /// The same without questions.
    void print(const DocumentRequest& request, QWidget* window);

    /// What a line of a report stands for was asked for; `preview` is the window that shows it.
    using Follow = std::function<void(const RowSubject& subject, QWidget* preview)>;
    void setFollow(const Follow& follow) { m_follow = follow; }

    /// The program ends: hides the preview window, cancels any building, saving or printing, and builds nothing more.
    void close();

private:
    void findOmissions(const ReportRequest& request);
    [[nodiscard]] std::unique_ptr<Ektypvsh> newFrame();
    /// False if it was cancelled.
    [[nodiscard]] bool show(std::unique_ptr<Ektypvsh> frame, const DocumentRequest& request, QWidget* window);
    [[nodiscard]] bool build(
        const DocumentRequest& request, QWidget* window, Ektypvsh& frame, ReportDocument& document);

    const BookFiles m_files;
    KeyRing& m_keys;
    Printers m_printers;
    ReportSaver m_saver;
    BackgroundRun m_run;
    std::unique_ptr<Ektypvsh> m_frame;
    Follow m_follow;
    OmissionSearch m_omissions;
    bool m_isClosed = false;
};

} // namespace lorvan
