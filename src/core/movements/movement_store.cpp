#include "movements/movement_store.h"

#include "movements/day_view.h"
#include "platform/engine/connection.h"

#include <string>

namespace lorvan {
namespace {

Statement select(Connection& main, const char* rest)
{
    std::string sql = "SELECT ";
    return main.prepare(sql.append(movementColumns).append(" FROM kinhseis ").append(rest));
}

} // namespace

Movement movementIn(const Statement& row)
{
    Movement movement;
    movement.key = row.integer(0);
    movement.code = row.number(1);
    movement.day = row.date(2);
    movement.description = row.text(3);
    movement.income = row.currency(4);
    movement.expense = row.currency(5);
    movement.cheque = row.boolean(6);
    movement.memorandum = row.currency(7);
    return movement;
}

namespace {

std::vector<Movement> movementsIn(Statement& rows)
{
    std::vector<Movement> movements;
    while (rows.step())
        movements.push_back(movementIn(rows));
    return movements;
}

} // namespace

std::vector<Movement> movementsOf(Connection& main, QDate day)
{
    auto rows = select(main, "WHERE hmeromhnia=? ORDER BY aa");
    rows.bind(day);
    return movementsIn(rows);
}

std::vector<Movement> movementsOfCode(Connection& main, qint32 code, QDate from, QDate to)
{
    auto rows = select(main, "WHERE kvdikos=? AND hmeromhnia BETWEEN ? AND ? ORDER BY hmeromhnia, aa");
    rows.bind(code, from, to);
    return movementsIn(rows);
}

std::optional<Movement> findMovement(Connection& main, qint64 key)
{
    auto row = select(main, "WHERE aa=?");
    row.bind(key);
    return row.step() ? std::optional(movementIn(row)) : std::nullopt;
}

void forEachMovement(Connection& main, const std::function<void(const Movement&)>& take)
{
    auto rows = select(main, "ORDER BY aa");
    while (rows.step())
        take(movementIn(rows));
}

qint64 addMovement(Connection& main, const MovementDraft& movement, qint32 group, std::optional<qint64> key)
{
    main.prepare("INSERT OR ABORT INTO kinhseis"
                 " (aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, grammh, epitagh, L_tajeos)"
                 " VALUES (?,?,?,?,?,?,?,?,?,?)")
        .bind(key, movement.code, movement.day, movement.description.trimmed(), movement.income, movement.expense,
            group, storedLine(movement), movement.cheque, movement.memorandum)
        .run();
    return main.lastInsertedKey();
}

void overwriteMovement(Connection& main, qint64 key, const MovementDraft& movement, qint32 group)
{
    main.prepare("UPDATE kinhseis SET kvdikos=?, perigrafh=?, esoda=?, ejoda=?, aa_omada=?, grammh=?, epitagh=?,"
                 " L_tajeos=? WHERE aa=?")
        .bind(movement.code, movement.description.trimmed(), movement.income, movement.expense, group,
            storedLine(movement), movement.cheque, movement.memorandum, key)
        .run();
}

void removeMovement(Connection& main, qint64 key)
{
    main.prepare("DELETE FROM kinhseis WHERE aa=?").bind(key).run();
}

} // namespace lorvan
