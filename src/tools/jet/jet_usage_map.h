#pragma once

#include "jet/jet_bytes.h"

#include <vector>

namespace lorvan {

class JetFile;

/// The pages that a usage map names, ascending; those past the end of the file are left out. Throws JetError.
[[nodiscard]] std::vector<std::uint32_t> mappedPages(const JetFile& file, JetRowPointer map);

} // namespace lorvan
