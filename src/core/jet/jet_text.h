#pragma once

#include "jet/jet_bytes.h"

#include <QString>

namespace lorvan {

/// A stored text: UTF-16, or compressed if it begins with FF FE. Trailing blanks are kept. Throws JetError for an odd
/// number of bytes and for a lone surrogate.
[[nodiscard]] QString decodeText(const JetBytes& bytes);

/// Only UTF-16, as used for names in definitions. Throws like decodeText().
[[nodiscard]] QString decodePlainText(const JetBytes& bytes);

} // namespace lorvan
