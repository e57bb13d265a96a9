#pragma once

#include "platform/currency.h"

#include <QString>

#include <optional>

namespace lorvan {

/// How the characters typed into a field are replaced. Does not apply to pasted text.
enum class TypingRule {
    Any, ///< As typed.
    Capitals, ///< Letters become capitals but keep their accents.
    Date, ///< Digits and commas; a blank and the other characters up to "/" become "-"; the rest is dropped.
    Amount, ///< Digits; everything else becomes ",".
    OpeningDate, ///< Digits and "€"; everything else becomes "-".
    OpeningAmount, ///< Digits, "-", "," and "€"; everything else becomes ",".
};

/// What a typed printable character becomes; no value if it is dropped.
[[nodiscard]] std::optional<QChar> typedCharacter(TypingRule rule, QChar typed);

/// Applies typedCharacter() to a whole text and leaves out dropped characters.
[[nodiscard]] QString typedText(TypingRule rule, const QString& typed);

/// What the code chooser contains when Enter is pressed in it or the focus leaves it.
struct ChooserReading {
    enum class Kind { Empty, NotANumber, Number };

    Kind kind = Kind::Empty;
    std::optional<qint32> code; ///< No value if the number cannot be a code: a fraction, or more than 32 bits.
};

/// Reads the text up to its first blank.
[[nodiscard]] ChooserReading readChooser(const QString& text);

} // namespace lorvan
