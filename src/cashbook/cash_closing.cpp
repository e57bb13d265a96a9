#include "cashbook/cash_closing.h"

#include "platform/connection.h"
#include "platform/transaction.h"

namespace lorvan {

bool isClosed(Connection& auxiliary, QDate day)
{
    return auxiliary.prepare("SELECT 1 FROM klhsimotameioy WHERE hmeraklhsimatos=? LIMIT 1").bind(day).step();
}

void closeDay(Connection& auxiliary, QDate day)
{
    Transaction transaction(auxiliary);
    if (isClosed(auxiliary, day))
        return;
    auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
    transaction.commit();
}

} // namespace lorvan
