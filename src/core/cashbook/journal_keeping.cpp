#include "cashbook/journal_keeping.h"

#include "cashbook/cash_closing.h"
#include "journal/journal.h"
#include "platform/engine/transaction.h"
#include "users/user_accounts.h"

#include <string>

namespace lorvan {
namespace {

qint64 numberIn(Connection& connection, const std::string& sql)
{
    auto row = connection.prepare(sql);
    return row.step() ? row.integer(0) : 0;
}

/// With the key of the last closing: those up to it are not looked for in the journal.
QJsonObject countRows(Connection& main, Connection& auxiliary)
{
    QJsonObject counts{
        {QStringLiteral("aa"), qint64(numberIn(auxiliary, "SELECT ifnull(max(aa), 0) FROM klhsimotameioy"))},
        {QStringLiteral("klhsimotameioy"), qint64(numberIn(auxiliary, "SELECT count(*) FROM klhsimotameioy"))}};
    for (const char* const table : {"kinhseis", "tameio", "kvdikoi", "omades"})
        counts[QLatin1String(table)] = qint64(numberIn(main, std::string("SELECT count(*) FROM ") + table));
    return counts;
}

bool hasBegun(Connection& main)
{
    return main.prepare("SELECT 1 FROM main.journal LIMIT 1").step();
}

bool isComplete(Connection& main, Connection& auxiliary)
{
    return hasBegun(main) && unrecordedUsers(main, auxiliary).isEmpty() && unrecordedClosings(main, auxiliary).empty();
}

} // namespace

void keepJournal(Connection& main, Connection& auxiliary)
{
    if (isComplete(main, auxiliary))
        return;
    Transaction writing(main, Authority::program());
    completeJournal(main, auxiliary);
    writing.commit();
}

void completeJournal(Connection& main, Connection& auxiliary)
{
    const Authority program = Authority::program();
    if (!hasBegun(main))
        recordChange(
            main, program, {JournalAction::Begin, journal_subject::book(), {}, {}, {}, countRows(main, auxiliary)});
    recordFound(main, program, unrecordedUsers(main, auxiliary));
    recordFound(main, program, unrecordedClosings(main, auxiliary));
}

} // namespace lorvan
