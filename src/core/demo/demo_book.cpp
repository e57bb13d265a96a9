#include "demo/demo_book.h"

#include "book/book.h"
#include "cashbook/day_seal.h"
#include "cashbook/journal_keeping.h"
#include "demo/demo_ledger.h"
#include "demo/demo_shop.h"
#include "demo/working_days.h"
#include "movements/cash_day.h"
#include "movements/movement_store.h"
#include "platform/engine/transaction.h"
#include "users/user_accounts.h"

#include <map>

namespace lorvan {
namespace {

void writeGroups(Connection& main)
{
    for (const QString& name : demoGroups())
        main.prepare("INSERT INTO omades (perigrafh) VALUES (?)").bind(name).run();
}

void writeCodes(Connection& main)
{
    for (const MovementCode& code : demoCodes()) {
        main.prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas, lista, esodo, energos)"
                     " VALUES (?,?,?,?,?,?,?)")
            .bind(code.code, code.description, demoGroups().at(static_cast<std::size_t>(code.group - 1)), code.group,
                code.listLine, code.income, code.active)
            .run();
    }
}

std::map<qint32, qint32> groupsByCode()
{
    std::map<qint32, qint32> groups;
    for (const MovementCode& code : demoCodes())
        groups[code.code] = code.group;
    return groups;
}

/// Enters the day's movements and its row, and advances `balance` to the end of the day.
void writeDay(Connection& main, QDate date, const DemoDay& day, Currency& balance)
{
    static const std::map<qint32, qint32> groups = groupsByCode();
    CashDayFigures figures;
    for (MovementDraft movement : day) {
        movement.day = date;
        addMovement(main, movement, groups.at(movement.code));
        figures.income += movement.income;
        figures.expense += movement.expense;
    }
    balance += figures.income - figures.expense;
    figures.closingBalance = balance;
    writeCashDay(main, date, figures);
}

void fillMain(Connection& main, const std::vector<QDate>& dates, std::uint64_t seed)
{
    const auto ledger = demoLedger(seed, demoWorkingDays);
    Currency balance;
    Transaction transaction(main, Authority::companion());
    writeGroups(main);
    writeCodes(main);
    for (std::size_t i = 0; i < dates.size(); ++i)
        writeDay(main, dates[i], ledger[i], balance);
    transaction.commit();
}

void fillAuxiliary(Connection& auxiliary, const std::vector<QDate>& dates)
{
    Transaction transaction(auxiliary, Authority::companion());
    for (std::size_t i = 0; i + demoOpenDays < dates.size(); ++i)
        auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(dates[i]).run();
    transaction.commit();
}

} // namespace

void fillDemoBook(Book& book, QDate today, std::uint64_t seed)
{
    const auto dates = workingDaysUntil(today.addDays(-1), demoWorkingDays);
    fillMain(book.main(), dates, seed);
    fillAuxiliary(book.auxiliary(), dates);
    keepJournal(book.main(), book.auxiliary());
    Connection both = book.openBoth();
    for (const DemoUser& user : demoUsers())
        addUser(both, Authority::companion(), user.name, user.password, user.rights);
    constexpr int daysInATransaction = 100;
    while (sealOlderDays(both, Authority::companion(), daysInATransaction) > 0)
        ;
}

} // namespace lorvan
