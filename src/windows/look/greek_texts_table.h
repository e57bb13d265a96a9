#pragma once

#include <span>

namespace lorvan {

struct GreekText {
    const char* source; ///< As in the toolkit, including the mnemonic.
    const char* greek; ///< UTF-8.
};

[[nodiscard]] std::span<const GreekText> greekTexts();

} // namespace lorvan
