#include "reports/period_movements.h"

#include "platform/engine/connection.h"

namespace lorvan {

std::string_view movementsTableFor(Connection& main, QDate start, QDate end)
{
    auto beyondAThird =
        main.prepare("SELECT 1 FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ?"
                     " LIMIT 1 OFFSET ifnull(((SELECT max(aa) FROM kinhseis)-(SELECT min(aa) FROM kinhseis))/3, 0)");
    beyondAThird.bind(start, end);
    return beyondAThird.step() ? "kinhseis NOT INDEXED" : "kinhseis";
}

} // namespace lorvan
