#include "book/journal_beginning.h"

#include "book/book_schema.h"
#include "book/row_counts.h"
#include "journal/journal.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

qint64 numberFrom(Connection& connection, const char* sql)
{
    auto row = connection.prepare(sql);
    return row.step() ? row.integer(0) : 0;
}

QJsonObject stateOf(Connection& main, Connection& auxiliary)
{
    QJsonObject state = countRows(main, auxiliary);
    if (main.knowsTable(openingDifferenceTable))
        state[QLatin1String(openingRows)] = numberFrom(main, "SELECT count(*) FROM opening_difference");
    state[QStringLiteral("aa")] = numberFrom(auxiliary, "SELECT ifnull(max(aa), 0) FROM klhsimotameioy");
    return state;
}

} // namespace

void beginJournal(Connection& main, Connection& auxiliary)
{
    createJournalTable(main);
    if (!main.prepare("SELECT 1 FROM main.journal LIMIT 1").step())
        recordChange(main, Authority::program(),
            {JournalAction::Begin, journal_subject::book(), {}, {}, {}, stateOf(main, auxiliary)});
}

} // namespace lorvan
