#include "door/stoppable_work.h"

#include "platform/stop_check.h"

#include <algorithm>
#include <limits>

namespace lorvan {
namespace {

int asCount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

} // namespace

bool runStoppable(BackgroundRun& run, QWidget* parent, const ProgressTexts& texts,
    const std::function<void(const WorkProgress&)>& work)
{
    bool isDone = false;
    (void)run.run(parent, texts, [&](const BackgroundRun::Progress& progress) {
        int shown = 0;
        int all = 0;
        const StopCheck stop([&] { return progress(shown, all); });
        work([&](qint64 done, qint64 whole) {
            shown = asCount(done);
            all = asCount(std::max(done, whole));
            (void)progress(shown, all);
        });
        isDone = true;
        return true;
    });
    return isDone;
}

} // namespace lorvan
