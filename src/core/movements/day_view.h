#pragma once

#include "movements/cash_day.h"
#include "movements/movement.h"

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

/// The columns of a movement, left to right.
enum class DayColumn : std::uint8_t { Number, Code, Description, Memorandum, Income, Expense, Cheque };
inline constexpr std::size_t dayColumnCount = 7;

/// A movement's values as texts, one for each column.
using DayCells = std::array<QString, dayColumnCount>;

/// The widths needed for the columns of a day, in characters of equal width.
class DayWidths {
public:
    /// Widens the columns of row number and amounts if this row needs it, with a blank before each amount. No column
    /// becomes narrower than in the line.
    void include(const DayCells& cells);

    [[nodiscard]] int of(DayColumn column) const { return m_columns.at(static_cast<std::size_t>(column)); }
    /// A blank is added after the row number and after the code.
    [[nodiscard]] int startOf(DayColumn column) const;
    /// Of all columns, with the description as wide as in the line.
    [[nodiscard]] int ofLine() const;

    /// By how much the longest description exceeds the line's column.
    [[nodiscard]] int missingForDescription() const { return m_missing; }

private:
    std::array<int, dayColumnCount> m_columns{day_line::numberWidth, day_line::codeWidth, day_line::descriptionWidth,
        day_line::memorandumWidth, day_line::amountWidth, day_line::amountWidth, day_line::chequeWidth};
    int m_missing = 0;
};

/// One cash day as shown and printed: the carried balance, its movements in the order of entry, and its figures.
struct DayView {
    QDate day;
    CarriedBalance carried;
    std::vector<Movement> movements;
    CashDayFigures figures;
};

/// Reads the day's movements through the date index and adds them up exactly. Reads only. Throws CurrencyOverflow.
[[nodiscard]] DayView readDay(Connection& main, QDate day);

/// The first line of the list: the carried balance with its day, or "Υπόλοιπο από την προηγούμενη " and the balance if
/// that is zero or contains an opening difference.
[[nodiscard]] QString carriedLine(const CarriedBalance& carried);

/// A movement's line of fixed width; `number` is its position in the day, from 1. Amounts that are too long lose their
/// beginning, descriptions their end.
[[nodiscard]] QString movementLine(const MovementDraft& movement, int number);

/// The same in columns, with row number, description and amounts uncut and the code as in the line. A memorandum amount
/// of zero is empty, and so is the cheque mark if there is no cheque.
[[nodiscard]] DayCells movementCells(const MovementDraft& movement, int number);

/// The same movement with nothing cut, for tooltips and assistive technology.
[[nodiscard]] QString movementSummary(const MovementDraft& movement, int number);

/// The display line stored with a movement: the line without its number.
[[nodiscard]] QString storedLine(const MovementDraft& movement);

} // namespace lorvan
