#pragma once

namespace lorvan {

/// Something was done and cannot be taken back, but the disk did not confirm it: a power cut now might undo it. Whoever
/// tells the user how an action ended asks takeUnconfirmed() and says so too. Both may be called from any thread.
void noteUnconfirmed() noexcept;

/// True once for all that was noted since the last time.
[[nodiscard]] bool takeUnconfirmed() noexcept;

} // namespace lorvan
