#pragma once

#include "jet/jet_bytes.h"

#include <QString>

namespace lorvan {

/// A stored text: UTF-16, or compressed when it begins with FF FE. Blanks at its end stay.
/// Throws JetError for an odd byte left over and for a lone surrogate.
[[nodiscard]] QString decodeText(const JetBytes& bytes);

/// UTF-16 alone, as names in definitions are kept. Throws like decodeText().
[[nodiscard]] QString decodePlainText(const JetBytes& bytes);

} // namespace lorvan
