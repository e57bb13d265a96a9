#pragma once

#include "platform/work.h"
#include "preview/progress_window.h"

#include <QMutex>

#include <atomic>
#include <functional>
#include <memory>

class QEventLoop;

namespace lorvan {

/// Runs long work in a thread of its own, while the program's windows are repainted and user input waits. After half a
/// second a modal window shows the progress and offers to cancel. Core's work tells through beginStep() what it does,
/// and through decideOrGiveUp() from when on it can no longer be cancelled; see WorkWatch.
class BackgroundRun {
public:
    /// Reports how far the work is; `all` is 0 if unknown. Returns false to cancel.
    using Progress = std::function<bool(int done, int all)>;
    /// Runs in the other thread and must not touch any window. Returns false if it was cancelled.
    using Work = std::function<bool(const Progress& progress)>;

    /// Returns when the work has ended. True if it was completed and not cancelled in the meantime; otherwise its
    /// results are not wanted. An exception from the work is thrown again here. Not to be called while a run is in
    /// progress.
    [[nodiscard]] bool run(QWidget* parent, const ProgressTexts& texts, const Work& work);

    /// For the work, while it runs: has `show` called in the thread of the windows, unless the work was cancelled or
    /// has ended meanwhile. From then on the progress is shown at the foot of the window that it returns.
    void showMeanwhile(const std::function<QWidget*()>& show);

    /// Cancels the work in progress, if any, unless it has been decided on; run() returns once the work has noticed.
    void cancel();

private:
    enum class Fate { Open, Cancelled, Decided };

    void wait(QEventLoop& loop);
    void showProgress();
    void updateProgress();
    /// Returns false if it was cancelled.
    [[nodiscard]] bool decide();
    [[nodiscard]] bool isCancelled() const { return m_fate == Fate::Cancelled; }

    QEventLoop* m_loop = nullptr; ///< Of the work in progress.
    ProgressTexts m_texts;
    QWidget* m_front = nullptr; ///< The window that the progress stands in front of.
    bool m_standsAtFoot = false; ///< Since there is something to read in that window.
    std::unique_ptr<ProgressWindow> m_window;

    std::atomic<Fate> m_fate = Fate::Open;
    std::atomic<bool> m_ended = false;
    std::atomic<int> m_done = 0;
    std::atomic<int> m_all = 0;
    QMutex m_guard; ///< For the text below.
    QString m_activity;
};

/// Core's work, which reports how far it is and is stopped by a StopCheck, as work for BackgroundRun.
[[nodiscard]] BackgroundRun::Work stoppable(const std::function<void(const StepProgress& progress)>& work);

/// Runs such work. True if it was completed, also if it could not be stopped any more; false if it was given up.
[[nodiscard]] bool runStoppable(BackgroundRun& run, QWidget* parent, const ProgressTexts& texts,
    const std::function<void(const StepProgress& progress)>& work);

} // namespace lorvan
