#pragma once

#include "look/theme.h"

namespace lorvan {

/// The colour of a role in one of our two themes, before any of the system's or the book's colours.
[[nodiscard]] QColor lightColour(ColourRole role);
[[nodiscard]] QColor darkColour(ColourRole role);

/// Contrast of two colours, 1 (none) to 21.
[[nodiscard]] qreal contrast(const QColor& one, const QColor& other);

} // namespace lorvan
