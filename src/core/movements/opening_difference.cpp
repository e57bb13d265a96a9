#include "movements/opening_difference.h"

#include "book/book_schema.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

/// Called for each day that is shown, after its balance was read, and for all days, after their rows were.
bool isKept(const Connection& main)
{
    return main.knowsTable(openingDifferenceTable);
}

} // namespace

OpeningDifferences openingDifferences(Connection& main)
{
    OpeningDifferences differences;
    if (!isKept(main))
        return differences;
    auto rows = main.prepare("SELECT day, amount FROM opening_difference");
    while (rows.step())
        differences[rows.integer(0)] += rows.currency(1);
    return differences;
}

Currency openingDifferenceBetween(Connection& main, QDate day, QDate last)
{
    Currency sum;
    if (!isKept(main))
        return sum;
    auto rows = main.prepare("SELECT amount FROM opening_difference WHERE day>? AND day<=?");
    rows.bind(day, last);
    while (rows.step())
        sum += rows.currency(0);
    return sum;
}

void addOpeningDifferences(Connection& main, const OpeningDifferences& differences)
{
    createOwnTables(main);
    auto add = main.prepare("INSERT INTO opening_difference (day, amount) VALUES (?,?)");
    for (const auto& [day, amount] : differences)
        add.bind(day, amount).run();
}

} // namespace lorvan
