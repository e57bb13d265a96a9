#include "movements/cash_day.h"

#include "movements/opening_difference.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/sql_functions.h"

namespace lorvan {
namespace {

void shift(Statement& update)
{
    try {
        update.run();
    } catch (const SqlError& error) {
        if (error.engineMessage() == QLatin1String(amountOverflowMessage))
            throw CurrencyOverflow();
        throw;
    }
}

} // namespace

bool namesItsDay(const CarriedBalance& carried)
{
    return !carried.balance.isZero() && carried.difference.isZero();
}

CarriedBalance carriedBalance(Connection& main, QDate day)
{
    CarriedBalance carried;
    auto row =
        main.prepare("SELECT hmeromhnia, ypoloipo FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia DESC LIMIT 1");
    row.bind(day);
    if (row.step())
        carried = {row.date(0), row.currency(1)};
    carried.difference = openingDifferenceBetween(main, carried.fromDay, day);
    carried.balance += carried.difference;
    return carried;
}

bool cashDayHolds(Connection& main, QDate day, const CashDayFigures& figures)
{
    auto row = main.prepare("SELECT esoda, ejoda, ypoloipo FROM tameio WHERE hmeromhnia=?");
    row.bind(day);
    bool found = false;
    while (row.step()) {
        found = true;
        if (CashDayFigures{row.currency(0), row.currency(1), row.currency(2)} != figures)
            return false;
    }
    return found;
}

std::optional<CashDayFigures> storedCashDay(Connection& main, QDate day)
{
    auto row = main.prepare("SELECT esoda, ejoda, ypoloipo FROM tameio WHERE hmeromhnia=? ORDER BY aa DESC LIMIT 1");
    row.bind(day);
    if (!row.step())
        return std::nullopt;
    return CashDayFigures{row.currency(0), row.currency(1), row.currency(2)};
}

bool writeCashDay(Connection& main, QDate day, const CashDayFigures& figures)
{
    if (cashDayHolds(main, day, figures))
        return false;
    const int changed = main.prepare("UPDATE tameio SET esoda=?, ejoda=?, ypoloipo=? WHERE hmeromhnia=?")
                            .bind(figures.income, figures.expense, figures.closingBalance, day)
                            .run();
    if (changed == 0) {
        main.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,?,?,?)")
            .bind(day, figures.income, figures.expense, figures.closingBalance)
            .run();
    }
    return true;
}

void shiftLaterDays(Connection& main, QDate day, Currency difference)
{
    if (difference.isZero())
        return;
    shift(main.prepare("UPDATE tameio SET ypoloipo=amount_add(ypoloipo,?) WHERE hmeromhnia>?").bind(difference, day));
}

void shiftDaysBetween(Connection& main, QDate day, QDate before, Currency difference)
{
    if (difference.isZero())
        return;
    shift(main.prepare("UPDATE tameio SET ypoloipo=amount_add(ypoloipo,?) WHERE hmeromhnia>? AND hmeromhnia<?")
              .bind(difference, day, before));
}

} // namespace lorvan
