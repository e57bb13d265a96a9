#pragma once

#include <QString>

namespace lorvan {

enum class Breaks {
    Keep, ///< Line feeds and tabs are kept.
    Show
};

/// The text with each control character, and each mark that changes the direction of writing, replaced by "\xNN" or
/// "\u{NNNN}", so that a foreign name can neither control a terminal nor pose as another one.
[[nodiscard]] QString printable(const QString& text, Breaks breaks = Breaks::Show);

/// A name from elsewhere, on one line: non-printable characters become \u and four hexadecimal digits, and the name is
/// cut after a hundred characters.
[[nodiscard]] QString printableName(const QString& name);

} // namespace lorvan
