#pragma once

#include <QtGlobal>

#include <functional>

namespace lorvan {

/// Told from time to time how much of the whole is done. It may throw, which ends the work.
using StepProgress = std::function<void(qint64 done, qint64 whole)>;

} // namespace lorvan
