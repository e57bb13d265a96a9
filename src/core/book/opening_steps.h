#pragma once

#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Authority;
class Connection;

/// The cash that the user counted at the end of `day`: the upgrade calculates the balances from that day on from it.
struct OpeningBalance {
    QDate day;
    Currency amount;
};

/// How an opening balance is entered into a book's cash days. It is needed when tables are made or upgraded, but the
/// rules belong to the cash book, see openingSteps(). All throw SqlError, `set` also CurrencyOverflow; the first two
/// run inside the caller's transaction.
struct OpeningSteps {
    void (*set)(
        Connection& main, const Authority& authority, const OpeningBalance& opening); ///< See setOpeningBalance().
    void (*adopt)(Connection& main, Connection& auxiliary); ///< See adoptOpeningBalance().
    void (*keepJournal)(Connection& main, Connection& auxiliary); ///< See keepJournal().
};

} // namespace lorvan
