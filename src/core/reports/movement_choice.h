#pragma once

#include <QDate>

#include <string>
#include <string_view>
#include <vector>

namespace lorvan {

class Connection;

/// The movements that a report asks for: those of a period, if codes or groups were chosen only theirs.
struct MovementChoice {
    enum class By { Code, Group };

    QDate start; ///< If invalid: from the beginning.
    QDate end;
    By by = By::Code;
    std::vector<qint32> numbers = {}; ///< None means all.
};

/// FROM and WHERE clauses of a statement on these movements; its parameters 1 and 2 are start and end. The movements
/// are read in the cheapest way: as stored, through the date index, or through the code index if the chosen codes have
/// few movements. A following ORDER BY or GROUP BY must put a "+" before its columns, or the engine may use another
/// index.
[[nodiscard]] std::string movementsFor(Connection& main, const MovementChoice& choice);

/// "IN (12,40)"
[[nodiscard]] std::string inNumbers(const std::vector<qint32>& numbers);

/// The table of movements for the FROM clause of a selection by period. Through the date index a movement costs three
/// times as much as in stored order, so a period with more than a third of all movements is read in stored order.
[[nodiscard]] std::string_view movementsTableFor(Connection& main, QDate start, QDate end);

} // namespace lorvan
