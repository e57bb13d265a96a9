#pragma once

#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Connection;

/// The cash that the user counted at the end of `day`: the upgrade calculates the balances from that day on from it.
struct OpeningBalance {
    QDate day;
    Currency amount;
};

/// How an opening balance is entered into a book's cash days. It is needed when tables are made or upgraded, but the
/// rules belong to the cash book, see openingSteps(). Both run inside the caller's transaction and throw SqlError,
/// `set` also CurrencyOverflow.
struct OpeningSteps {
    void (*set)(Connection& main, const OpeningBalance& opening); ///< See setOpeningBalance().
    void (*adopt)(Connection& main); ///< See adoptOpeningBalance().
};

} // namespace lorvan
