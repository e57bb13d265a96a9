#pragma once

#include "reports/report_omissions.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace lorvan {

/// Finds what a report leaves out on a thread of its own, while the report is being read.
class OmissionSearch : public QObject {
    Q_OBJECT

public:
    using Omissions = std::vector<ReportOmission>;
    /// Runs on the other thread and must touch no window; to give up when the question answers false.
    using Search = std::function<Omissions(const std::function<bool()>& goesOn)>;
    using Answer = std::function<void(const Omissions& omissions)>;

    ~OmissionSearch() override { cancel(); }

    /// Gives up what is under way. The answer comes on the calling thread, once, unless the search is given up; a
    /// failure is told in it.
    void start(Search search, Answer answer);

    /// Waits for the thread, which notices within a moment.
    void cancel();

private:
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    unsigned m_number = 0; ///< Of the search; answers of earlier ones are not wanted.
};

} // namespace lorvan
