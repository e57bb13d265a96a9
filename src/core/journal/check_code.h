#pragma once

#include <QString>

namespace lorvan {

/// The code that is printed of a hash: its first 50 bits as ten letters and digits (Crockford's base 32, which has no
/// I, L, O and U), "K7QF-2M9T-XD". Empty for a text that is no SHA-256 in hexadecimal digits.
[[nodiscard]] QString checkCode(const QString& hash);

/// The first 12 hexadecimal digits, in small letters, of the hashes that have this code, which is given as printed.
[[nodiscard]] QString hashBeginning(const QString& code);

/// A typed code in that form: letter case, blanks and hyphens do not matter, I and L are read as 1, O as 0, and Greek
/// capitals as the Latin ones that look like them. Empty if it is no code.
[[nodiscard]] QString readCheckCode(const QString& typed);

} // namespace lorvan
