#pragma once

#include "reports/report_omissions.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace lorvan {

/// Finds out in a thread of its own what a report leaves out, while the user reads the report.
class OmissionSearch : public QObject {
    Q_OBJECT

public:
    using Omissions = std::vector<ReportOmission>;
    /// Runs in the other thread and must not touch any window; it must stop when `goesOn` returns false.
    using Search = std::function<Omissions(const std::function<bool()>& goesOn)>;
    using Answer = std::function<void(const Omissions& omissions)>;

    ~OmissionSearch() override { cancel(); }

    /// Cancels any search in progress. The answer arrives in the calling thread, once, unless the search is cancelled;
    /// it also reports a failure.
    void start(Search search, Answer answer);

    /// Waits for the thread, which stops almost at once.
    void cancel();

private:
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    unsigned m_number = 0; ///< Number of the search; answers of earlier ones are ignored.
};

} // namespace lorvan
