#pragma once

#include <QString>

namespace lorvan {

/// Why the system refused a call, in plain Greek; in the system's words where there is no Greek for it. `number` is an
/// errno.
[[nodiscard]] QString systemReason(int number);

/// The same for a reason that a library hands on in the system's words; other words come back as they are.
[[nodiscard]] QString systemReason(const QString& words);

/// A reason as the end of a sentence: with one full stop.
[[nodiscard]] QString withStop(const QString& reason);

} // namespace lorvan
