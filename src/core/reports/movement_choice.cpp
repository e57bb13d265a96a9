#include "reports/movement_choice.h"

#include "platform/engine/connection.h"

namespace lorvan {
namespace {

/// The cost of a movement through the code index, compared with one read as stored and one read through the date index:
/// the movements of a code are far apart, each on a page of its own.
constexpr int costInStoredOrder = 12;
constexpr int costByDate = 4;

/// The number of their movements; counting stops at `limit`.
std::int64_t movementsOfCodes(Connection& main, const std::string& codes, std::int64_t limit)
{
    auto count = main.prepare("SELECT count(*) FROM (SELECT 1 FROM kinhseis WHERE kvdikos " + codes + " LIMIT ?)");
    count.bind(limit);
    return count.step() ? count.integer(0) : 0;
}

std::int64_t movementsInBook(Connection& main)
{
    auto keys = main.prepare("SELECT ifnull((SELECT max(aa) FROM kinhseis)-(SELECT min(aa) FROM kinhseis)+1, 0)");
    return keys.step() ? keys.integer(0) : 0;
}

bool hasMoreInPeriod(Connection& main, const MovementChoice& choice, std::int64_t count)
{
    auto row = main.prepare("SELECT 1 FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ? LIMIT 1 OFFSET ?");
    row.bind(choice.start, choice.end, count);
    return row.step();
}

bool areFew(Connection& main, const MovementChoice& choice)
{
    const std::int64_t limit = movementsInBook(main) / costInStoredOrder;
    const std::int64_t count = movementsOfCodes(main, inNumbers(choice.numbers), limit + 1);
    return count <= limit && hasMoreInPeriod(main, choice, costByDate * count);
}

} // namespace

std::string movementsFor(Connection& main, const MovementChoice& choice)
{
    const bool isByCode = choice.by == MovementChoice::By::Code;
    if (isByCode && !choice.numbers.empty() && areFew(main, choice))
        return " FROM kinhseis WHERE kvdikos " + inNumbers(choice.numbers) + " AND +hmeromhnia BETWEEN ?1 AND ?2";
    std::string clauses = " FROM ";
    clauses.append(movementsTableFor(main, choice.start, choice.end)).append(" WHERE hmeromhnia BETWEEN ?1 AND ?2");
    if (!choice.numbers.empty())
        clauses.append(isByCode ? " AND +kvdikos " : " AND +aa_omada ").append(inNumbers(choice.numbers));
    return clauses;
}

std::string inNumbers(const std::vector<qint32>& numbers)
{
    std::string list;
    for (const qint32 number : numbers)
        list.append(list.empty() ? "IN (" : ",").append(std::to_string(number));
    return list + ')';
}

std::string_view movementsTableFor(Connection& main, QDate start, QDate end)
{
    auto beyondAThird =
        main.prepare("SELECT 1 FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ?"
                     " LIMIT 1 OFFSET ifnull(((SELECT max(aa) FROM kinhseis)-(SELECT min(aa) FROM kinhseis))/3, 0)");
    beyondAThird.bind(start, end);
    return beyondAThird.step() ? "kinhseis NOT INDEXED" : "kinhseis";
}

} // namespace lorvan
