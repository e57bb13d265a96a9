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

/// A name from elsewhere on one line: what is no printable character as \u and four hexadecimal digits, and cut behind
/// a hundred characters.
[[nodiscard]] QString printableName(const QString& name);

} // namespace lorvan
