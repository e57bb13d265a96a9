#include "reports/code_sums.h"

#include "platform/engine/connection.h"
#include "reports/movement_choice.h"

namespace lorvan {
namespace {

constexpr auto columns = "SELECT kvdikos, esoda, ejoda, L_tajeos";

/// True if it reads only an index, with a search for its rows.
bool readsAnIndexAlone(Connection& main, const std::string& sql)
{
    auto plan = main.prepare("EXPLAIN QUERY PLAN " + sql);
    return plan.step() && plan.text(3).startsWith(QStringLiteral("SEARCH"))
        && plan.text(3).contains(QStringLiteral("COVERING INDEX"));
}

std::string statementFor(Connection& main, QDate start, QDate end, const std::vector<qint32>& codes)
{
    const std::string wanted = codes.empty() ? "IN (SELECT kvdikos FROM kvdikoi)" : inNumbers(codes);
    const std::string byCode =
        columns + std::string(" FROM kinhseis WHERE kvdikos ") + wanted + " AND hmeromhnia BETWEEN ?1 AND ?2";
    return readsAnIndexAlone(main, byCode)
        ? byCode
        : columns + movementsFor(main, {start, end, MovementChoice::By::Code, codes});
}

} // namespace

MovementSums& MovementSums::operator+=(const MovementSums& other)
{
    income += other.income;
    expense += other.expense;
    memorandum += other.memorandum;
    return *this;
}

std::unordered_map<qint32, MovementSums> sumsByCode(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& codes)
{
    auto movements = main.prepare(statementFor(main, start, end, codes));
    movements.bind(start, end);
    std::unordered_map<qint32, MovementSums> sums;
    while (movements.step())
        sums[movements.number(0)] += {movements.currency(1), movements.currency(2), movements.currency(3)};
    return sums;
}

} // namespace lorvan
