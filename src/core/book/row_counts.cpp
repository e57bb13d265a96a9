#include "book/row_counts.h"

#include "platform/engine/connection.h"

#include <string>
#include <utility>

namespace lorvan {

QJsonObject countRows(Connection& main, Connection& auxiliary)
{
    QJsonObject counts;
    for (const auto& [connection, table] : {std::pair(&main, "kinhseis"), {&main, "tameio"}, {&main, "kvdikoi"},
             {&main, "omades"}, {&auxiliary, "klhsimotameioy"}}) {
        auto row = connection->prepare(std::string("SELECT count(*) FROM ") + table);
        counts[QLatin1String(table)] = row.step() ? qint64(row.integer(0)) : 0;
    }
    return counts;
}

} // namespace lorvan
