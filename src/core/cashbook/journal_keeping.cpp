#include "cashbook/journal_keeping.h"

#include "book/journal_beginning.h"
#include "cashbook/cash_closing.h"
#include "journal/journal.h"
#include "platform/engine/transaction.h"
#include "users/user_accounts.h"

namespace lorvan {
namespace {

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
    beginJournal(main, auxiliary);
    recordFound(main, program, unrecordedUsers(main, auxiliary));
    recordFound(main, program, unrecordedClosings(main, auxiliary));
}

} // namespace lorvan
