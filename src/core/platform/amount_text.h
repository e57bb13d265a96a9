#pragma once

#include "platform/currency.h"

#include <QString>

namespace lorvan {

/// The result of reading a typed amount.
struct AmountReading {
    enum class Outcome { Amount, NotANumber, OutOfRange };

    Outcome outcome = Outcome::NotANumber;
    Currency amount; ///< Zero unless the outcome is Amount.

    explicit operator bool() const { return outcome == Outcome::Amount; }
};

enum class Precision { Cents = 2, TenThousandths = 4 };

/// Reads a number in Greek form: an optional sign, digits, optionally grouped in threes by ".", and decimals after one
/// ",". Blanks around it are ignored. An empty text, a misplaced "." or a second "," is not a number. Decimals beyond
/// the precision are rounded once, half away from zero.
[[nodiscard]] AmountReading readAmount(QStringView text, Precision precision = Precision::TenThousandths);

/// The amount format "###,###,###,###,##0.00" with Greek separators: 1.234,56. Rounds to cents; never "-0,00".
[[nodiscard]] QString amountText(Currency amount);

/// As amountText(), but "0" for an amount of exactly zero: the form of fields, lists and the status bar.
[[nodiscard]] QString amountOrZeroText(Currency amount);

} // namespace lorvan
