#pragma once

#include "platform/currency.h"

#include <QDate>

#include <optional>

namespace lorvan {

class Connection;

/// The three figures of a cash day.
struct CashDayFigures {
    Currency income;
    Currency expense;
    Currency closingBalance;

    friend bool operator==(const CashDayFigures&, const CashDayFigures&) = default;
};

/// The balance that a day starts with. The day is invalid if there is no earlier cash day.
struct CarriedBalance {
    QDate fromDay;
    Currency balance;
    Currency difference = {}; ///< The opening differences contained in the balance.
};

/// Whether the first line of a day names the day that its balance comes from: not if the balance is zero or contains an
/// opening difference.
[[nodiscard]] bool namesItsDay(const CarriedBalance& carried);

/// The closing balance of the latest cash day before `day`, or zero if there is none, plus the opening differences of
/// the days after that one up to and including `day`. Uses indexes only. Throws CurrencyOverflow.
[[nodiscard]] CarriedBalance carriedBalance(Connection& main, QDate day);

/// Writes the day's row, adding it if there is none. If the row already holds these figures, writes nothing and returns
/// false. Runs inside the caller's transaction.
bool writeCashDay(Connection& main, QDate day, const CashDayFigures& figures);

/// The figures in the day's row, the last one with its date.
[[nodiscard]] std::optional<CashDayFigures> storedCashDay(Connection& main, QDate day);

/// True if the day's row exists and holds these figures.
[[nodiscard]] bool cashDayHolds(Connection& main, QDate day, const CashDayFigures& figures);

/// Adds `difference` to the closing balance of every cash day after `day`, with one statement; does nothing if it is
/// zero. Runs inside the caller's transaction. Throws CurrencyOverflow if a balance would be out of range.
void shiftLaterDays(Connection& main, QDate day, Currency difference);

/// The same, but only up to the day before `before`.
void shiftDaysBetween(Connection& main, QDate day, QDate before, Currency difference);

} // namespace lorvan
