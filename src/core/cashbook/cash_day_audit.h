#pragma once

#include "cashbook/cash_day.h"
#include "cashbook/opening_difference.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lorvan {

/// A row of tameio as it is stored.
struct CashDayRow {
    std::int64_t key = 0;
    std::int64_t day = 0;
    CashDayFigures figures;
    bool sumsAreAmounts = true; ///< False for a text or a fraction; NULL is an amount of zero.
    bool balanceIsAmount = true;
};

/// What the movements of a day add up to.
struct DaySums {
    Currency income;
    Currency expense;
};

using SumsByDay = std::unordered_map<std::int64_t, DaySums>;

/// A cash day with the row that the program reads, the last of its date, and what it should hold.
struct AuditedDay {
    std::int64_t day = 0;
    std::optional<CashDayRow> row;
    std::vector<std::int64_t> repeatedKeys; ///< Further rows of the same date.
    CashDayFigures expected;
    bool sumsWrong = false; ///< Of the row, where there is one.
    bool balanceWrong = false;
};

struct CashDayAudit {
    std::vector<AuditedDay> days; ///< In the order of their dates, one for each.
    OpeningDifferences differences; ///< Those kept in the book, or what its balances show of an opening.
    bool differencesAreKept = false;
};

/// Holds the cash days against the movements and the opening differences. A day's balance should be the one before it
/// plus the day's movements, from zero on, and from the day of an opening difference on that much more.
///
/// Where none is `kept`, the end of the book tells whether there is one: what its last balances differ by. It is none
/// where the stored sums of the day on which it begins, or days that have no row, account for it: then movements have
/// been changed without their cash days, and later balances are to be shifted. Days from the opening day on that hold
/// one and the same balance are as earlier releases' upgrade to version 3 has left them and count as right, and so do
/// those between them that a look has computed anew; each gets the difference by which it does.
///
/// `rows` in any order. A date that is none gets no row where it has none. Throws CurrencyOverflow when what the
/// movements add up to, or a balance as it should be, is no amount.
[[nodiscard]] CashDayAudit auditCashDays(
    std::vector<CashDayRow> rows, const SumsByDay& sums, const OpeningDifferences& kept);

} // namespace lorvan
