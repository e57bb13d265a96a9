#include "movements/journal_states.h"

#include "platform/date_text.h"

namespace lorvan {
namespace {

qint64 stored(Currency amount)
{
    return amount.tenThousandths();
}

} // namespace

QJsonObject journalState(const Movement& movement)
{
    return {{QStringLiteral("aa"), movement.key}, {QStringLiteral("kvdikos"), movement.code},
        {QStringLiteral("hmeromhnia"), storedDate(movement.day)},
        {QStringLiteral("perigrafh"), movement.description.trimmed()},
        {QStringLiteral("esoda"), stored(movement.income)}, {QStringLiteral("ejoda"), stored(movement.expense)},
        {QStringLiteral("epitagh"), movement.cheque ? -1 : 0},
        {QStringLiteral("L_tajeos"), stored(movement.memorandum)}};
}

QJsonObject journalState(const CashDayFigures& figures)
{
    return {{QStringLiteral("esoda"), stored(figures.income)}, {QStringLiteral("ejoda"), stored(figures.expense)},
        {QStringLiteral("ypoloipo"), stored(figures.closingBalance)}};
}

QJsonObject journalState(const OpeningDifferences& differences)
{
    QJsonObject state;
    for (const auto& [day, amount] : differences)
        state[QString::number(day)] = stored(amount);
    return state;
}

Movement movementIn(const QJsonObject& state)
{
    const auto integer = [&](const char* column) { return state[QLatin1String(column)].toInteger(); };
    const auto amount = [&](const char* column) { return Currency::fromTenThousandths(integer(column)); };
    Movement movement;
    movement.key = integer("aa");
    movement.code = static_cast<qint32>(integer("kvdikos"));
    movement.day = dateFromStored(integer("hmeromhnia"));
    movement.description = state[QStringLiteral("perigrafh")].toString();
    movement.income = amount("esoda");
    movement.expense = amount("ejoda");
    movement.cheque = integer("epitagh") != 0;
    movement.memorandum = amount("L_tajeos");
    return movement;
}

} // namespace lorvan
