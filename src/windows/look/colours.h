#pragma once

#include "look/theme.h"

namespace lorvan {

/// The colour of a role in one of our two themes, before the colours of the system or the book are applied.
[[nodiscard]] QColor lightColour(ColourRole role);
[[nodiscard]] QColor darkColour(ColourRole role);

/// The contrast of two colours, from 1 (none) to 21.
[[nodiscard]] qreal contrast(const QColor& one, const QColor& other);

} // namespace lorvan
