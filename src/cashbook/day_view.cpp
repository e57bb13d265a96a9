#include "cashbook/day_view.h"

#include "app/padding.h"
#include "cashbook/movement_store.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

namespace lorvan {
namespace {

QString chequeMark(const MovementDraft& movement)
{
    return movement.cheque ? QStringLiteral(" §") : QStringLiteral(" ");
}

} // namespace

DayView readDay(Connection& main, QDate day)
{
    DayView view{day, previousBalance(main, day), movementsOf(main, day), {}};
    for (const Movement& movement : view.movements) {
        view.figures.income += movement.income;
        view.figures.expense += movement.expense;
    }
    view.figures.closingBalance = view.carried.balance + view.figures.income - view.figures.expense;
    return view;
}

QString carriedLine(const CarriedBalance& carried)
{
    if (carried.balance.isZero())
        return QStringLiteral("Υπόλοιπο από την προηγούμενη 0");
    return QStringLiteral("Υπόλοιπο για την ") + dateText(carried.fromDay) + QStringLiteral("    ")
        + amountText(carried.balance);
}

QString storedLine(const MovementDraft& movement)
{
    using namespace day_line;
    const QString memorandum = movement.memorandum.isZero() ? QString() : amountText(movement.memorandum);
    return rightAligned(QString::number(movement.code), codeWidth) + u' '
        + leftAligned(movement.description, descriptionWidth) + rightAligned(memorandum, memorandumWidth)
        + rightAligned(amountOrZeroText(movement.income), amountWidth)
        + rightAligned(amountOrZeroText(movement.expense), amountWidth) + chequeMark(movement);
}

QString movementLine(const MovementDraft& movement, int number)
{
    return rightAligned(QString::number(number), day_line::numberWidth) + u' ' + storedLine(movement);
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
