#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace lorvan {

class Connection;

/// How finely cash days are put together.
enum class FigureStep { Day, Week, Month, Year };

/// The days of a picture: whole steps, one after the other.
struct FigureSpan {
    FigureStep step = FigureStep::Month;
    QDate from;
    QDate to; ///< The last day.

    friend bool operator==(const FigureSpan&, const FigureSpan&) = default;
};

/// What happened from one day to another, and the balance after it.
struct CashFigure {
    QDate from;
    QDate to;
    Currency income;
    Currency expense;
    std::optional<Currency> balance; ///< None before the first cash day and after the last one.

    friend bool operator==(const CashFigure&, const CashFigure&) = default;
};

/// The span of that step with the day in it: the days of its month, the weeks (from Monday) or months of its year, or
/// ten years, of which its own is the last.
[[nodiscard]] FigureSpan spanWith(QDate day, FigureStep step);

/// The span next to it: -1 for the one before, 1 for the one after.
[[nodiscard]] FigureSpan spanBeside(const FigureSpan& span, int direction);

/// The same days of the year before.
[[nodiscard]] FigureSpan yearBefore(const FigureSpan& span);

/// "Νοέμβριος 2026", "2026", "2017–2026".
[[nodiscard]] QString spanText(const FigureSpan& span);

/// What a step is called in a list: "3-11-2026", "2-11-2026 έως 8-11-2026", "Νοέμβριος 2026", "2026".
[[nodiscard]] QString stepText(const CashFigure& figure, FigureStep step);
/// The same below a chart: "3", "2/11", "Νοε", "2026".
[[nodiscard]] QString shortStepText(const CashFigure& figure, FigureStep step);

/// One figure for each step of the span, from the rows of the cash days alone; a step without cash days has the balance
/// of the one before it. Throws SqlError, CurrencyOverflow.
[[nodiscard]] std::vector<CashFigure> readCashFigures(Connection& main, const FigureSpan& span);

} // namespace lorvan
