#pragma once

#include <QString>

namespace lorvan {

class Theme;

/// The part of the looks that the toolkit draws from a style sheet: scroll bars, frames with a title, tooltips, menus.
[[nodiscard]] QString styleSheet(const Theme& theme);

} // namespace lorvan
