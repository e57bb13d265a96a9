#pragma once

#include "platform/currency.h"

#include <QString>

#include <vector>

namespace lorvan {

/// One line of a tape: an amount in Greek form with an optional sign before it, or nothing.
struct TapeLine {
    enum class Kind { Empty, Amount, NotANumber, OutOfRange };

    Kind kind = Kind::Empty;
    Currency amount = {}; ///< Zero unless the kind is Amount; negative after a minus.

    [[nodiscard]] bool isWrong() const { return kind == Kind::NotANumber || kind == Kind::OutOfRange; }
};

/// A column of amounts and its sum.
struct Tape {
    std::vector<TapeLine> lines;
    Currency sum; ///< Of the lines that are amounts, each rounded to cents; zero if it overflows.
    bool overflows = false;

    /// The first line that is no amount, from 0; -1 if all are.
    [[nodiscard]] int firstWrong() const;
    [[nodiscard]] bool isSum() const { return !overflows && firstWrong() < 0; }
};

/// Reads a text with an amount on each line.
[[nodiscard]] Tape readTape(const QString& text);

/// Says why the tape has no sum, or one that is below zero and cannot be typed as an amount; empty if it has one.
[[nodiscard]] QString tapeRefusal(const Tape& tape);

} // namespace lorvan
