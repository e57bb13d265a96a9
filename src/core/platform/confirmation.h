#pragma once

namespace lorvan {

/// Notes that something was done and cannot be taken back, but that the disk did not confirm it: a power cut now might
/// undo it. Code that tells the user how an action ended also calls takeUnconfirmed() and mentions it. Both functions
/// may be called from any thread.
void noteUnconfirmed() noexcept;

/// True once for everything noted since the last call.
[[nodiscard]] bool takeUnconfirmed() noexcept;

} // namespace lorvan
