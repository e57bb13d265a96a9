#pragma once

#include "preview/progress_window.h"

#include <atomic>
#include <functional>

class QEventLoop;

namespace lorvan {

/// Long work on a thread of its own, while the program's windows repaint and what the user types and clicks waits.
/// After half a second a modal window shows the progress and offers to cancel.
class BackgroundRun {
public:
    /// How far the work is; `all` is 0 where that is not known. False: give up.
    using Progress = std::function<bool(int done, int all)>;
    /// Runs on the other thread and must touch no window. False when it was given up.
    using Work = std::function<bool(const Progress& progress)>;

    /// Comes back when the work has ended. True when it came to its end and nobody gave it up meanwhile; otherwise what
    /// it leaves is not wanted. A failure of the work is thrown here. Not to be called while a run is under way.
    [[nodiscard]] bool run(QWidget* parent, const ProgressTexts& texts, const Work& work);

    /// Gives up the work under way, if there is any; the call of run() goes on until it has noticed.
    void cancel() { m_cancelled = true; }

private:
    void wait(QEventLoop& loop, QWidget* parent, const ProgressTexts& texts);

    std::atomic<bool> m_cancelled = false;
    std::atomic<bool> m_ended = false;
    std::atomic<int> m_done = 0;
    std::atomic<int> m_all = 0;
};

} // namespace lorvan
