#pragma once

#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Connection;

/// The cash that the user counted at the end of `day`: from it on, the upgrade has the balances follow from it.
struct OpeningBalance {
    QDate day;
    Currency amount;
};

/// How an opening balance comes into a book's cash days. Making and upgrading the tables asks for it; the rules are the
/// cash book's, see openingSteps(). Both run inside the caller's transaction and throw SqlError, the first one
/// CurrencyOverflow too.
struct OpeningSteps {
    void (*set)(Connection& main, const OpeningBalance& opening); ///< See setOpeningBalance().
    void (*adopt)(Connection& main); ///< See adoptOpeningBalance().
};

} // namespace lorvan
