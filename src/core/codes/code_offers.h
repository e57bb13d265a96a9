#pragma once

#include "codes/code_catalogue.h"

namespace lorvan {

/// The positions in `codes` of those that a typed text offers: each word of it begins a word of the code's description,
/// whatever its letter case and accents. None for a text without a letter, which is the number of a code.
[[nodiscard]] std::vector<int> offeredCodes(const std::vector<MovementCode>& codes, const QString& typed);

} // namespace lorvan
