#pragma once

#include <QString>

namespace lorvan {

enum class Breaks {
    Keep, ///< Line feeds and tabs stay.
    Show
};

/// The text with each control character, and each mark that turns the direction of writing, as "\xNN" or "\u{NNNN}": a
/// foreign name can then neither steer a terminal nor be read as another one.
[[nodiscard]] QString printable(const QString& text, Breaks breaks = Breaks::Show);

} // namespace lorvan
