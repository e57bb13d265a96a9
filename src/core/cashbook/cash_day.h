#pragma once

#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Connection;

/// The three figures of a cash day.
struct CashDayFigures {
    Currency income;
    Currency expense;
    Currency closingBalance;

    friend bool operator==(const CashDayFigures&, const CashDayFigures&) = default;
};

/// The balance that a day starts from. The day is invalid when no earlier cash day exists.
struct CarriedBalance {
    QDate fromDay;
    Currency balance;
    Currency difference = {}; ///< Of the opening, contained in the balance.
};

/// The closing balance of the latest cash day strictly before `day`, zero where there is none, with the opening
/// differences of the days after that one up to and including `day`: index look-ups. Throws CurrencyOverflow.
[[nodiscard]] CarriedBalance carriedBalance(Connection& main, QDate day);

/// Writes the day's row, making it if there is none. Returns false, writing nothing, when the row holds these figures
/// already. Runs inside the caller's transaction.
bool writeCashDay(Connection& main, QDate day, const CashDayFigures& figures);

/// True when the day's row exists and holds these figures.
[[nodiscard]] bool cashDayHolds(Connection& main, QDate day, const CashDayFigures& figures);

/// Adds `difference` to the closing balance of every cash day after `day`, with one statement; none for a difference of
/// zero. Runs inside the caller's transaction. Throws CurrencyOverflow when a balance would leave its range.
void shiftLaterDays(Connection& main, QDate day, Currency difference);

/// As shiftLaterDays(), but leaves the days from `before` on alone.
void shiftDaysBetween(Connection& main, QDate day, QDate before, Currency difference);

} // namespace lorvan
