#pragma once

#include "cashbook/day_seal.h"
#include "movements/cash_day.h"
#include "movements/movement.h"

#include <optional>
#include <vector>

namespace lorvan {

class Connection;

/// A day of the month that is a cash day or has movements.
struct MonthDay {
    QDate day;
    CashDayFigures figures; ///< Its row's, or zeros if it has none.
    bool isClosed = false;
};

/// What a code came to in the month.
struct MonthCode {
    qint32 code = 0;
    QString description; ///< Empty if the code is in no catalogue.
    QString group;
    int movements = 0;
    Currency income;
    Currency expense;
    Currency memorandum;
};

/// One month of a book.
struct MonthContent {
    QDate month; ///< Its first day.
    Currency carried; ///< The balance that the month starts with.
    Currency income; ///< Of all movements.
    Currency expense;
    Currency balance; ///< After the last day.
    std::vector<MonthDay> days;
    std::vector<Movement> movements; ///< By day, then in the order of entry.
    std::vector<MonthCode> codes; ///< By number; those with movements.
    std::vector<DaySeal> seals; ///< By day, then by version.

    /// What the movements do not explain of the balance: opening differences of days within the month.
    [[nodiscard]] Currency difference() const { return balance - carried - income + expense; }
};

/// Throws SqlError, CurrencyOverflow.
[[nodiscard]] MonthContent readMonth(Connection& main, Connection& auxiliary, QDate month);

} // namespace lorvan
