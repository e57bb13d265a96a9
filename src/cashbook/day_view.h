#pragma once

#include "cashbook/cash_day.h"
#include "cashbook/movement.h"

#include <QString>

#include <vector>

namespace lorvan {

class Connection;

/// Widths of a movement line, in characters. A line is 72 characters long.
namespace day_line {
inline constexpr int numberWidth = 4;
inline constexpr int codeWidth = 5;
inline constexpr int descriptionWidth = 22;
inline constexpr int memorandumWidth = 15;
inline constexpr int amountWidth = 11;
inline constexpr int chequeWidth = 2;
inline constexpr int codeStart = numberWidth + 1;
inline constexpr int descriptionStart = codeStart + codeWidth + 1;
inline constexpr int memorandumStart = descriptionStart + descriptionWidth;
inline constexpr int incomeStart = memorandumStart + memorandumWidth;
inline constexpr int expenseStart = incomeStart + amountWidth;
inline constexpr int chequeStart = expenseStart + amountWidth;
inline constexpr int length = chequeStart + chequeWidth;
} // namespace day_line

/// One cash day as it is shown and printed: what was carried, its movements in the order of their entry, its figures.
struct DayView {
    QDate day;
    CarriedBalance carried;
    std::vector<Movement> movements;
    CashDayFigures figures;
};

/// Reads the day's movements by the date index and sums them exactly. Reads only. Throws CurrencyOverflow.
[[nodiscard]] DayView readDay(Connection& main, QDate day);

/// The first line of the list: the carried balance with its day, or "Υπόλοιπο από την προηγούμενη 0" for a balance of
/// zero.
[[nodiscard]] QString carriedLine(const CarriedBalance& carried);

/// A movement's line of fixed width; `number` is its place in the day, from 1. Amounts that are too long lose their
/// beginning, descriptions their end.
[[nodiscard]] QString movementLine(const MovementDraft& movement, int number);

/// The same movement with nothing cut: for a tooltip and for assistive tools.
[[nodiscard]] QString movementSummary(const MovementDraft& movement, int number);

/// The display line stored with a movement: the line without its number.
[[nodiscard]] QString storedLine(const MovementDraft& movement);

} // namespace lorvan
