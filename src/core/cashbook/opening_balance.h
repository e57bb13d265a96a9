#pragma once

#include "book/opening_steps.h"
#include "platform/currency.h"

#include <QDate>

namespace lorvan {

class Connection;

/// Makes `amount` the cash at the end of `day`: keeps what it differs by as the day's opening difference, gives the
/// day's row, if there is one, the amount, and each later cash day the amount with the movements after `day` up to it.
/// An earlier answer for that day or a later one no longer counts. Runs inside the caller's transaction. Throws
/// SqlError and CurrencyOverflow.
void setOpeningBalance(Connection& main, QDate day, Currency amount);

/// For a book that was upgraded when the opening balance stood in the balances alone: keeps as opening differences what
/// its balances are beyond its movements. Only where nothing else is wrong with its cash days, so that no balance
/// changes; of a book of an older schema version nothing is kept. Reads the cash days, and all movements only where the
/// balances are not carried from zero. Runs inside the caller's transaction. Throws SqlError.
void adoptOpeningBalance(Connection& main);

/// The two for those who make and upgrade the tables.
[[nodiscard]] const OpeningSteps& openingSteps();

} // namespace lorvan
