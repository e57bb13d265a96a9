#include "movements/day_view.h"

#include "movements/movement_store.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/padding.h"

#include <algorithm>

namespace lorvan {
namespace {

QString chequeMark(const MovementDraft& movement)
{
    return movement.cheque ? QStringLiteral(" §") : QStringLiteral(" ");
}

QString memorandumText(const MovementDraft& movement)
{
    return movement.memorandum.isZero() ? QString() : amountText(movement.memorandum);
}

} // namespace

void DayWidths::include(const DayCells& cells)
{
    const auto widen = [&](DayColumn column, qsizetype blanks) {
        const auto place = static_cast<std::size_t>(column);
        m_columns.at(place) = std::max(m_columns.at(place), static_cast<int>(cells.at(place).size() + blanks));
    };
    widen(DayColumn::Number, 0);
    widen(DayColumn::Memorandum, 1);
    widen(DayColumn::Income, 1);
    widen(DayColumn::Expense, 1);
    const qsizetype description = cells.at(static_cast<std::size_t>(DayColumn::Description)).size();
    m_missing = std::max(m_missing, static_cast<int>(description) - of(DayColumn::Description));
}

int DayWidths::startOf(DayColumn column) const
{
    int start = 0;
    for (std::size_t before = 0; before < static_cast<std::size_t>(column); ++before)
        start += m_columns.at(before) + (before <= static_cast<std::size_t>(DayColumn::Code) ? 1 : 0);
    return start;
}

int DayWidths::ofLine() const
{
    return startOf(DayColumn::Cheque) + of(DayColumn::Cheque);
}

DayView readDay(Connection& main, QDate day)
{
    DayView view{day, carriedBalance(main, day), movementsOf(main, day), {}};
    for (const Movement& movement : view.movements) {
        view.figures.income += movement.income;
        view.figures.expense += movement.expense;
    }
    view.figures.closingBalance = view.carried.balance + view.figures.income - view.figures.expense;
    return view;
}

QString carriedLine(const CarriedBalance& carried)
{
    if (!namesItsDay(carried))
        return QStringLiteral("Υπόλοιπο από την προηγούμενη ") + amountOrZeroText(carried.balance);
    return QStringLiteral("Υπόλοιπο για την ") + dateText(carried.fromDay) + QStringLiteral("    ")
        + amountText(carried.balance);
}

QString storedLine(const MovementDraft& movement)
{
    using namespace day_line;
    return rightAligned(QString::number(movement.code), codeWidth) + u' '
        + leftAligned(movement.description, descriptionWidth) + rightAligned(memorandumText(movement), memorandumWidth)
        + rightAligned(amountOrZeroText(movement.income), amountWidth)
        + rightAligned(amountOrZeroText(movement.expense), amountWidth) + chequeMark(movement);
}

QString movementLine(const MovementDraft& movement, int number)
{
    return rightAligned(QString::number(number), day_line::numberWidth) + u' ' + storedLine(movement);
}

DayCells movementCells(const MovementDraft& movement, int number)
{
    return {QString::number(number), QString::number(movement.code).right(day_line::codeWidth),
        movement.description.trimmed(), memorandumText(movement), amountOrZeroText(movement.income),
        amountOrZeroText(movement.expense), movement.cheque ? QStringLiteral("§") : QString()};
}

QString movementSummary(const MovementDraft& movement, int number)
{
    QString text = QStringLiteral("%1. %2 ").arg(number).arg(movement.code) + movement.description;
    const auto add = [&text](const QString& caption, Currency amount) {
        if (!amount.isZero())
            text += u'\n' + caption + u' ' + amountText(amount);
    };
    add(QStringLiteral("Έσοδα"), movement.income);
    add(QStringLiteral("Έξοδα"), movement.expense);
    add(QStringLiteral("Λ τάξεως"), movement.memorandum);
    if (movement.cheque)
        text += QStringLiteral("\nΕπιταγή");
    return text;
}

} // namespace lorvan
