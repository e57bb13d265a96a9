#pragma once

#include <QString>

namespace lorvan {

/// Trims the text, pads it with blanks on the left and returns the last `width` characters: a longer text loses its
/// beginning.
[[nodiscard]] QString rightAligned(QStringView text, qsizetype width);

/// Trims the text, pads it with blanks on the right and returns the first `width` characters: a longer text loses its
/// end.
[[nodiscard]] QString leftAligned(QStringView text, qsizetype width);

} // namespace lorvan
