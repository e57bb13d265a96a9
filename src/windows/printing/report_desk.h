#pragma once

#include "book/book_files.h"
#include "preview/background_run.h"
#include "preview/omission_search.h"
#include "preview/printers.h"
#include "preview/report_saver.h"
#include "reports/report_building.h"

#include <memory>

namespace lorvan {

class Ektypvsh;
class KeyRing;

/// Where reports are asked for: one frame at a time, the printers, and the folder that reports are saved in.
class ReportDesk {
public:
    /// The keys must outlive the desk.
    ReportDesk(BookFiles files, KeyRing& keys);
    ~ReportDesk();

    /// Discards the frame that is there, asks the report's questions over the window, builds the report and shows it in
    /// a frame of its own. A report that fails or is given up leaves no frame. To be called under the busy pointer.
    /// Throws what the report throws.
    void print(ReportRequest request, QWidget* window);

    /// The program ends: hides the frame, gives up what is being built, saved or printed, and builds nothing more.
    void close();

private:
    void findOmissions(const ReportRequest& request);
    [[nodiscard]] bool build(const ReportRequest& request, QWidget* window, ReportDocument& document);

    const BookFiles m_files;
    KeyRing& m_keys;
    Printers m_printers;
    ReportSaver m_saver;
    BackgroundRun m_run;
    std::unique_ptr<Ektypvsh> m_frame;
    OmissionSearch m_omissions;
    bool m_isClosed = false;
};

} // namespace lorvan
