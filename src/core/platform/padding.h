#pragma once

#include <QString>

namespace lorvan {

/// The trimmed text with blanks in front, its rightmost `width` characters: a longer text loses its beginning.
[[nodiscard]] QString rightAligned(QStringView text, qsizetype width);

/// The trimmed text with blanks behind, its leftmost `width` characters: a longer text loses its end.
[[nodiscard]] QString leftAligned(QStringView text, qsizetype width);

} // namespace lorvan
