#pragma once

#include <span>

namespace lorvan {

struct GreekText {
    const char* source; ///< As it stands in the toolkit, mnemonic and all.
    const char* greek; ///< UTF-8.
};

[[nodiscard]] std::span<const GreekText> greekTexts();

} // namespace lorvan
