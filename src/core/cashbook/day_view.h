#pragma once

#include "cashbook/cash_day.h"
#include "cashbook/movement.h"

#include <QString>

#include <array>
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
inline constexpr int length =
    numberWidth + 1 + codeWidth + 1 + descriptionWidth + memorandumWidth + 2 * amountWidth + chequeWidth;
} // namespace day_line

/// The columns in which a movement is shown, left to right.
enum class DayColumn : std::uint8_t { Number, Code, Description, Memorandum, Income, Expense, Cheque };
inline constexpr std::size_t dayColumnCount = 7;

/// A movement's own values as texts, one for each column.
using DayCells = std::array<QString, dayColumnCount>;

/// How much room the columns of a day need, in characters of equal width.
class DayWidths {
public:
    /// Makes the columns of row number and amounts wide enough for that row, with a blank before each amount. None is
    /// narrower than in the line.
    void include(const DayCells& cells);

    [[nodiscard]] int of(DayColumn column) const { return m_columns.at(static_cast<std::size_t>(column)); }
    [[nodiscard]] int startOf(DayColumn column) const; ///< With a blank after row number and code each.
    [[nodiscard]] int ofLine() const; ///< Of all columns, the description's as in the line.

    /// What the longest description has beyond the line's column.
    [[nodiscard]] int missingForDescription() const { return m_missing; }

private:
    std::array<int, dayColumnCount> m_columns{day_line::numberWidth, day_line::codeWidth, day_line::descriptionWidth,
        day_line::memorandumWidth, day_line::amountWidth, day_line::amountWidth, day_line::chequeWidth};
    int m_missing = 0;
};

/// One cash day as it is shown and printed: what was carried, its movements in the order of their entry, its figures.
struct DayView {
    QDate day;
    CarriedBalance carried;
    std::vector<Movement> movements;
    CashDayFigures figures;
};

/// Reads the day's movements by the date index and sums them exactly. Reads only. Throws CurrencyOverflow.
[[nodiscard]] DayView readDay(Connection& main, QDate day);

/// The first line of the list: the carried balance with its day, or "Υπόλοιπο από την προηγούμενη " and the balance
/// where that is zero or holds an opening difference.
[[nodiscard]] QString carriedLine(const CarriedBalance& carried);

/// A movement's line of fixed width; `number` is its place in the day, from 1. Amounts that are too long lose their
/// beginning, descriptions their end.
[[nodiscard]] QString movementLine(const MovementDraft& movement, int number);

/// The same in columns, with row number, description and amounts whole and the code as in the line. A memorandum amount
/// of zero is empty, and so is the mark of what is no cheque.
[[nodiscard]] DayCells movementCells(const MovementDraft& movement, int number);

/// The same movement with nothing cut: for a tooltip and for assistive tools.
[[nodiscard]] QString movementSummary(const MovementDraft& movement, int number);

/// The display line stored with a movement: the line without its number.
[[nodiscard]] QString storedLine(const MovementDraft& movement);

} // namespace lorvan
