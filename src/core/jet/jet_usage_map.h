#pragma once

#include "jet/jet_bytes.h"

#include <vector>

namespace lorvan {

class JetFile;

/// The pages listed in a usage map, ascending; those past the end of the file are left out. Throws JetError.
[[nodiscard]] std::vector<std::uint32_t> mappedPages(const JetFile& file, JetRowPointer map);

} // namespace lorvan
