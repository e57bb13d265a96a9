#pragma once

#include <QDate>

#include <string>
#include <string_view>
#include <vector>

namespace lorvan {

class Connection;

/// The movements that a report asks for: those of a period, of chosen codes or groups alone if some were chosen.
struct MovementChoice {
    enum class By { Code, Group };

    QDate start; ///< Invalid: from the beginning.
    QDate end;
    By by = By::Code;
    std::vector<qint32> numbers = {}; ///< None means all.
};

/// FROM and WHERE of a statement on these movements, whose parameters 1 and 2 are start and end. It reads in the order
/// that costs least: as stored, by the date index, or by the code index where the chosen codes have few movements.
/// An ORDER BY or GROUP BY behind it puts a "+" before its columns, or the engine may follow another index.
[[nodiscard]] std::string movementsFor(Connection& main, const MovementChoice& choice);

/// "IN (12,40)"
[[nodiscard]] std::string inNumbers(const std::vector<qint32>& numbers);

/// The movements' table as a FROM clause names it for a selection by period. Through the date index a movement costs
/// three times what it costs in the stored order, so a period with more than a third of all movements is read in that
/// order.
[[nodiscard]] std::string_view movementsTableFor(Connection& main, QDate start, QDate end);

} // namespace lorvan
