#include "cashbook/journal_keeping.h"

#include "book/row_counts.h"
#include "cashbook/cash_closing.h"
#include "journal/journal.h"
#include "movements/journalled_opening.h"
#include "platform/engine/transaction.h"
#include "users/user_accounts.h"

namespace lorvan {
namespace {

/// With the number of opening differences, and the key of the last closing: those up to it are not looked for in the
/// journal.
QJsonObject stateOf(Connection& main, Connection& auxiliary)
{
    QJsonObject state = countRows(main, auxiliary);
    state[QLatin1String(openingRows)] = qint64(openingDifferences(main).size());
    auto last = auxiliary.prepare("SELECT ifnull(max(aa), 0) FROM klhsimotameioy");
    state[QStringLiteral("aa")] = last.step() ? qint64(last.integer(0)) : 0;
    return state;
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
            main, program, {JournalAction::Begin, journal_subject::book(), {}, {}, {}, stateOf(main, auxiliary)});
    recordFound(main, program, unrecordedUsers(main, auxiliary));
    recordFound(main, program, unrecordedClosings(main, auxiliary));
}

} // namespace lorvan
