#pragma once

#include <exception>

namespace lorvan {

/// The box in which the program says why a book cannot be opened at the start: a missing or damaged database, a wrong
/// password, an unusable marker file, an unknown schema version; or why it cannot be upgraded now. The caller ends the
/// program after it.
void showStartFailure(const std::exception& failure);

} // namespace lorvan
