#pragma once

#include <string>
#include <string_view>

namespace lorvan {

/// A letter as a search sees it: without accent, in small letters, the final sigma as any other.
[[nodiscard]] char16_t foldedLetter(char16_t letter);

/// Replaces `folded` by the folded letters of a text in UTF-8, without marks that combine with the letter before them.
/// Bytes that are no UTF-8 become U+FFFD.
void foldUtf8(std::string_view text, std::u16string& folded);

} // namespace lorvan
