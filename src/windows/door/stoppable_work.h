#pragma once

#include "preview/background_run.h"

#include <functional>

namespace lorvan {

/// How far the work is; `whole` is 0 if unknown.
using WorkProgress = std::function<void(qint64 done, qint64 whole)>;

/// Runs core's work in the background while a StopCheck tells it that the user has cancelled. True if it was completed,
/// also if it could not be stopped any more; false if it was given up. Other failures are thrown again.
[[nodiscard]] bool runStoppable(BackgroundRun& run, QWidget* parent, const ProgressTexts& texts,
    const std::function<void(const WorkProgress&)>& work);

} // namespace lorvan
