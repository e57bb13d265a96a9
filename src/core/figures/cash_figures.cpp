#include "figures/cash_figures.h"

#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int daysOfWeek = 7;
constexpr int yearsShown = 10;

QString dayAsRead(QDate day)
{
    return day.toString(QStringLiteral("d-M-yyyy"));
}

QDate endOfStep(QDate from, FigureStep step)
{
    switch (step) {
    case FigureStep::Day:
        return from;
    case FigureStep::Week:
        return from.addDays(daysOfWeek - 1);
    case FigureStep::Month:
        return from.addMonths(1).addDays(-1);
    case FigureStep::Year:
        break;
    }
    return from.addYears(1).addDays(-1);
}

std::vector<CashFigure> emptyFigures(const FigureSpan& span)
{
    std::vector<CashFigure> figures;
    for (QDate from = span.from; from <= span.to; from = figures.back().to.addDays(1))
        figures.push_back({from, endOfStep(from, span.step), {}, {}, {}});
    return figures;
}

std::optional<Currency> balanceBefore(Connection& main, QDate day)
{
    auto row = main.prepare("SELECT ypoloipo FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia DESC, aa DESC LIMIT 1");
    row.bind(day);
    return row.step() ? std::optional(row.currency(0)) : std::nullopt;
}

bool hasCashDayFrom(Connection& main, QDate day)
{
    return main.prepare("SELECT 1 FROM tameio WHERE hmeromhnia>=? LIMIT 1").bind(day).step();
}

/// A balance goes on until the next cash day, but not beyond the last one.
void carryBalances(Connection& main, std::vector<CashFigure>& figures)
{
    std::optional<Currency> balance = balanceBefore(main, figures.front().from);
    auto end = figures.end();
    while (end != figures.begin() && !std::prev(end)->balance && !hasCashDayFrom(main, std::prev(end)->from))
        --end;
    for (auto figure = figures.begin(); figure != end; ++figure) {
        if (!figure->balance)
            figure->balance = balance;
        balance = figure->balance;
    }
}

QDate startOfSpan(QDate day, FigureStep step)
{
    switch (step) {
    case FigureStep::Day:
        return {day.year(), day.month(), 1};
    case FigureStep::Year:
        return {std::max(day.year() - yearsShown + 1, 1), 1, 1};
    case FigureStep::Month:
        return {day.year(), 1, 1};
    case FigureStep::Week:
        break;
    }
    const QDate first(day.year(), 1, 1);
    return first.addDays(1 - first.dayOfWeek());
}

} // namespace

FigureSpan spanWith(QDate day, FigureStep step)
{
    const QDate from = startOfSpan(day, step);
    switch (step) {
    case FigureStep::Day:
        return {step, from, from.addMonths(1).addDays(-1)};
    case FigureStep::Week: {
        const QDate last(day.year(), 12, 31);
        return {step, from, last.addDays(daysOfWeek - last.dayOfWeek())};
    }
    case FigureStep::Month:
    case FigureStep::Year:
        break;
    }
    return {step, from, QDate(day.year(), 12, 31)};
}

FigureSpan spanBeside(const FigureSpan& span, int direction)
{
    const QDate inside = span.from.addDays(daysOfWeek); // the weeks of a year may begin in the year before
    if (span.step == FigureStep::Day)
        return spanWith(inside.addMonths(direction), span.step);
    if (span.step == FigureStep::Year)
        return spanWith(span.to.addYears(direction * yearsShown), span.step);
    return spanWith(inside.addYears(direction), span.step);
}

FigureSpan yearBefore(const FigureSpan& span)
{
    return spanWith(span.from.addDays(daysOfWeek).addYears(-1), span.step);
}

QString spanText(const FigureSpan& span)
{
    if (span.step == FigureStep::Day)
        return monthText(span.from);
    if (span.step == FigureStep::Year)
        return QStringLiteral("%1–%2").arg(span.from.year()).arg(span.to.year());
    return QString::number(span.from.addDays(daysOfWeek).year());
}

QString stepText(const CashFigure& figure, FigureStep step)
{
    switch (step) {
    case FigureStep::Day:
        return dayAsRead(figure.from);
    case FigureStep::Week:
        return QStringLiteral("%1 έως %2").arg(dayAsRead(figure.from), dayAsRead(figure.to));
    case FigureStep::Month:
        return monthText(figure.from);
    case FigureStep::Year:
        break;
    }
    return QString::number(figure.from.year());
}

QString shortStepText(const CashFigure& figure, FigureStep step)
{
    switch (step) {
    case FigureStep::Day:
        return QString::number(figure.from.day());
    case FigureStep::Week:
        return figure.from.toString(QStringLiteral("d/M"));
    case FigureStep::Month:
        return shortMonthName(figure.from);
    case FigureStep::Year:
        break;
    }
    return QString::number(figure.from.year());
}

std::vector<CashFigure> readCashFigures(Connection& main, const FigureSpan& span)
{
    std::vector<CashFigure> figures = emptyFigures(span);
    auto days = main.prepare("SELECT hmeromhnia, esoda, ejoda, ypoloipo FROM tameio WHERE hmeromhnia BETWEEN ? AND ?"
                             " ORDER BY hmeromhnia, aa");
    days.bind(span.from, figures.back().to);
    auto figure = figures.begin();
    while (days.step()) {
        const QDate day = days.date(0);
        figure = std::find_if(figure, figures.end(), [day](const auto& at) { return day <= at.to; });
        if (!day.isValid() || figure == figures.end())
            continue;
        figure->income += days.currency(1);
        figure->expense += days.currency(2);
        figure->balance = days.currency(3);
    }
    carryBalances(main, figures);
    return figures;
}

} // namespace lorvan
