#pragma once

#include <cstdint>

namespace lorvan {

/// The chains of the journal and of the seals go on behind the greatest id below this one: a row that another program
/// has put at the end of all numbers must not leave none for the next.
inline constexpr std::int64_t firstStrayId = std::int64_t(1) << 62;

} // namespace lorvan
