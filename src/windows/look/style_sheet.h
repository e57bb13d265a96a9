#pragma once

#include <QString>

namespace lorvan {

class Theme;

/// The parts that the toolkit draws according to a style sheet: scroll bars, frames with a title, tooltips, menus.
[[nodiscard]] QString styleSheet(const Theme& theme);

} // namespace lorvan
