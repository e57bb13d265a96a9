#pragma once

#include "movements/cash_day.h"
#include "movements/opening_difference.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lorvan {

/// A row of tameio as stored.
struct CashDayRow {
    std::int64_t key = 0;
    std::int64_t day = 0;
    CashDayFigures figures;
    bool sumsAreAmounts = true; ///< False for a text or a fraction; NULL counts as zero.
    bool balanceIsAmount = true;
};

/// The sums of a day's movements.
struct DaySums {
    Currency income;
    Currency expense;
};

using SumsByDay = std::unordered_map<std::int64_t, DaySums>;

/// A cash day with the row that the program reads (the last with its date), and what that row should hold.
struct AuditedDay {
    std::int64_t day = 0;
    std::optional<CashDayRow> row;
    std::vector<std::int64_t> repeatedKeys; ///< Further rows with the same date.
    CashDayFigures expected;
    bool sumsWrong = false; ///< In the row, if there is one.
    bool balanceWrong = false;
};

struct CashDayAudit {
    std::vector<AuditedDay> days; ///< Sorted by date, one for each date.
    OpeningDifferences differences; ///< Those recorded in the book, or those that its balances suggest.
    bool differencesAreKept = false;
};

/// Whether the opening differences of a book that has none recorded are to be guessed from its balances.
enum class Opening { Guessed, Known };

/// Compares the cash days with the movements and the opening differences. A day's balance should be the previous one
/// plus the day's movements, starting at zero; an opening difference is added from its day on.
///
/// If none are recorded (`kept`) and it is not known that there are none, the end of the book shows whether there is
/// one: it is the amount by which the last balances are off. It does not count as an opening difference if it can be
/// explained by the stored sums of the day on which it begins, or by days that have no row: then movements have been
/// changed without their cash days, and the later balances must be shifted. Earlier releases' upgrade to version 3 gave
/// all days from the opening day on the same balance; such days count as correct, and so do days between them whose
/// balance was calculated anew because somebody looked at them. Each gets its own difference.
///
/// `rows` may be in any order. An invalid date gets no row if it has none. Throws CurrencyOverflow if the sum of the
/// movements, or a correct balance, is out of range.
[[nodiscard]] CashDayAudit auditCashDays(std::vector<CashDayRow> rows, const SumsByDay& sums,
    const OpeningDifferences& kept, Opening opening = Opening::Guessed);

} // namespace lorvan
