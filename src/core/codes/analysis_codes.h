#pragma once

#include "codes/cash_analysis_groups.h"

#include <vector>

namespace lorvan {

class Connection;

/// Every movement code, inactive ones included, as a box holds it once it is chosen: its tag is the bare code. In the
/// Greek order of the descriptions. Throws SqlError.
[[nodiscard]] std::vector<CodeBox> listCodeBoxes(Connection& main);

} // namespace lorvan
