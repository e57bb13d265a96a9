#pragma once

#include "codes/code_catalogue.h"
#include "document/chart.h"
#include "figures/cash_figures.h"
#include "movements/movement.h"

#include <optional>
#include <vector>

namespace lorvan {

/// What a code has come to: its months, the sums and averages over them, its last movement.
struct CodeCard {
    qint32 number = 0;
    std::optional<MovementCode> code; ///< None if it is in no catalogue.
    QString group; ///< The name of its group; empty if it has none.
    /// From the month of its first movement to that of its last one, at most the ten years up to that; those without
    /// movements as well. None without movements. Without balances.
    std::vector<CashFigure> months;
    Currency income; ///< Of those months.
    Currency expense;
    std::optional<Movement> last;

    /// For each month, rounded to cents; zero without months.
    [[nodiscard]] Currency averageIncome() const;
    [[nodiscard]] Currency averageExpense() const;
};

/// Reads it through an index of codes and days, in one transaction. Movements without a valid date count nowhere.
/// Throws SqlError, CurrencyOverflow.
[[nodiscard]] CodeCard readCodeCard(Connection& main, qint32 number);

/// "205 ΔΕΗ", or the number alone.
[[nodiscard]] QString cardTitle(const CodeCard& card);

/// Income and expense by month.
[[nodiscard]] Chart cardChart(const CodeCard& card);

} // namespace lorvan
