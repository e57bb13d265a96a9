#pragma once

#include "movements/cash_day.h"
#include "movements/movement.h"
#include "movements/opening_difference.h"

#include <QJsonObject>

namespace lorvan {

/// What the journal stores of the cash book's rows: columns with their values as in the file, amounts in
/// ten-thousandths, days as yyyymmdd. What follows from other columns is left out.
[[nodiscard]] QJsonObject journalState(const Movement& movement);
[[nodiscard]] QJsonObject journalState(const CashDayFigures& figures);
/// Amounts by day.
[[nodiscard]] QJsonObject journalState(const OpeningDifferences& differences);

/// The movement of such a state; its key is 0 if the state is none of a movement.
[[nodiscard]] Movement movementIn(const QJsonObject& state);

} // namespace lorvan
