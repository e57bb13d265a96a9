#pragma once

#include "book/opening_steps.h"
#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Connection;

/// Makes the amount the cash at the end of the day: records the discrepancy as the day's opening difference, sets the
/// balance of the day's row, if there is one, to the amount, and that of each later cash day to the amount plus the
/// movements after the day up to that day. An earlier answer for the same or a later day is dropped. A row in
/// the journal tells the differences before and after. Runs inside the caller's transaction. Throws SqlError and
/// CurrencyOverflow.
void setOpeningBalance(Connection& main, const Authority& authority, const OpeningBalance& opening);

/// For a book that was upgraded when the opening balance was visible only in the balances: records as opening
/// differences what its balances exceed its movements by. Only if nothing else is wrong with its cash days, so that no
/// balance changes; nothing is recorded in a book of an older schema version. Reads the cash days, and all movements
/// only if the balances are not carried from zero. The journal begins before it tells of them. Runs inside the caller's
/// transaction. Throws SqlError.
void adoptOpeningBalance(Connection& main, Connection& auxiliary);

/// These functions and keepJournal(), for the code that makes and upgrades the tables.
[[nodiscard]] const OpeningSteps& openingSteps();

} // namespace lorvan
