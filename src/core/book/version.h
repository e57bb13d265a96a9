#pragma once

#include <QString>

namespace lorvan {

/// major.minor.revision
[[nodiscard]] QString programVersion();

} // namespace lorvan
