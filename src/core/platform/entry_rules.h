#pragma once

#include "platform/currency.h"

#include <QString>

#include <optional>

namespace lorvan {

/// How the characters typed into a field are turned into others. Pasted text is not subject to it.
enum class TypingRule {
    Any, ///< As typed.
    Capitals, ///< Letters become capitals and keep their accents.
    Date, ///< Digits and the comma; blank and the other signs up to "/" become "-"; the rest is dropped.
    Amount, ///< Digits; everything else becomes ",".
    OpeningDate, ///< Digits; everything else becomes "-".
    OpeningAmount, ///< Digits, "-" and ","; everything else becomes ",".
};

/// What a typed printable character becomes; empty when it is dropped.
[[nodiscard]] std::optional<QChar> typedCharacter(TypingRule rule, QChar typed);

/// typedCharacter() over a whole text, dropped characters left out.
[[nodiscard]] QString typedText(TypingRule rule, const QString& typed);

/// What stands in the code chooser when Enter is pressed there or it is left.
struct ChooserReading {
    enum class Kind { Empty, NotANumber, Number };

    Kind kind = Kind::Empty;
    std::optional<qint32> code; ///< Empty for a number that cannot be a code: a fraction, or beyond 32 bits.
};

/// Reads the text up to its first blank.
[[nodiscard]] ChooserReading readChooser(const QString& text);

} // namespace lorvan
