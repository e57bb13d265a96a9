#include "figures/code_card.h"

#include "movements/movement_store.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int mostMonths = 120;

QDate firstOfMonth(QDate day)
{
    return {day.year(), day.month(), 1};
}

std::vector<CashFigure> emptyMonths(QDate first, QDate last)
{
    std::vector<CashFigure> months;
    const QDate begin = std::max(firstOfMonth(first), firstOfMonth(last).addMonths(1 - mostMonths));
    for (QDate month = begin; month <= last; month = month.addMonths(1))
        months.push_back({month, month.addMonths(1).addDays(-1), {}, {}, {}});
    return months;
}

/// The first or the last day with a movement of the code.
QDate outermostDay(Connection& main, qint32 code, bool isLast)
{
    auto row = main.prepare(isLast
            ? "SELECT hmeromhnia FROM kinhseis WHERE kvdikos=? AND hmeromhnia BETWEEN 1010101 AND 99991231"
              " ORDER BY hmeromhnia DESC LIMIT 1"
            : "SELECT hmeromhnia FROM kinhseis WHERE kvdikos=? AND hmeromhnia BETWEEN 1010101 AND 99991231"
              " ORDER BY hmeromhnia LIMIT 1");
    row.bind(code);
    return row.step() ? row.date(0) : QDate();
}

void addMovements(Connection& main, CodeCard& card)
{
    auto rows =
        main.prepare("SELECT hmeromhnia, esoda, ejoda FROM kinhseis WHERE kvdikos=? AND hmeromhnia BETWEEN ? AND ?"
                     " ORDER BY hmeromhnia");
    rows.bind(card.number, card.months.front().from, card.months.back().to);
    auto month = card.months.begin();
    while (rows.step()) {
        const QDate day = rows.date(0);
        while (day.isValid() && day > month->to)
            ++month;
        if (!day.isValid())
            continue;
        month->income += rows.currency(1);
        month->expense += rows.currency(2);
        card.income += rows.currency(1);
        card.expense += rows.currency(2);
    }
}

std::optional<Movement> lastMovement(Connection& main, qint32 code, QDate day)
{
    auto row = main.prepare("SELECT max(aa) FROM kinhseis WHERE kvdikos=? AND hmeromhnia=?");
    row.bind(code, day);
    return row.step() ? findMovement(main, row.integer(0)) : std::nullopt;
}

QString groupName(Connection& main, qint32 number)
{
    for (const CodeGroup& group : listGroups(main)) {
        if (group.number == number)
            return group.name.trimmed();
    }
    return {};
}

/// Half a cent away from zero.
Currency average(Currency sum, std::size_t count)
{
    if (count == 0)
        return {};
    const auto parts = static_cast<std::int64_t>(count);
    return Currency::fromTenThousandths(sum.tenThousandths() / parts).roundedToCents();
}

} // namespace

Currency CodeCard::averageIncome() const
{
    return average(income, months.size());
}

Currency CodeCard::averageExpense() const
{
    return average(expense, months.size());
}

CodeCard readCodeCard(Connection& main, qint32 number)
{
    const Transaction reading(main, Transaction::View::Steady);
    CodeCard card;
    card.number = number;
    card.code = findCode(main, number, CodeSelection::All);
    if (card.code)
        card.group = groupName(main, card.code->group);
    const QDate first = outermostDay(main, number, false);
    const QDate last = outermostDay(main, number, true);
    if (!first.isValid() || !last.isValid())
        return card;
    card.months = emptyMonths(first, last);
    card.last = lastMovement(main, number, last);
    addMovements(main, card);
    return card;
}

QString cardTitle(const CodeCard& card)
{
    const QString number = QString::number(card.number);
    return card.code ? number + u' ' + card.code->description.trimmed() : number;
}

Chart cardChart(const CodeCard& card)
{
    Chart chart;
    ChartSeries incomes{QStringLiteral("Έσοδα"), ChartRole::Income, {}, false};
    ChartSeries expenses{QStringLiteral("Έξοδα"), ChartRole::Expense, {}, false};
    const bool isLong = card.months.size() > 12;
    for (const CashFigure& month : card.months) {
        chart.places.append(
            isLong ? month.from.toString(QStringLiteral("M/yy")) : shortStepText(month, FigureStep::Month));
        incomes.values.emplace_back(month.income);
        expenses.values.emplace_back(month.expense);
    }
    if (!card.income.isZero())
        chart.panels.push_back({ChartPanel::Kind::Bars, {std::move(incomes)}});
    if (!card.expense.isZero() || chart.panels.empty())
        chart.panels.push_back({ChartPanel::Kind::Bars, {std::move(expenses)}});
    return chart;
}

} // namespace lorvan
