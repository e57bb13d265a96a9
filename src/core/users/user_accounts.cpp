#include "users/user_accounts.h"

#include "book/journal_beginning.h"
#include "journal/journal.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

QJsonObject stateOf(const QString& name, Rights rights)
{
    return {{QStringLiteral("uname"), name}, {QStringLiteral("r_eggrafes"), rights.modifyCash},
        {QStringLiteral("r_klhsimo"), rights.closeCash}, {QStringLiteral("r_kvdikoi"), rights.modifyCodes}};
}

/// Under the name after the change, or the last one of an account that was removed.
void recordUser(Connection& book, const Authority& authority, JournalAction action, const QJsonObject& before,
    const QJsonObject& after)
{
    const QString name = (after.isEmpty() ? before : after)[QStringLiteral("uname")].toString();
    recordChange(book, authority, {action, journal_subject::user(name), {}, {}, before, after});
}

QJsonObject readState(const QString& json)
{
    QJsonObject state = QJsonDocument::fromJson(json.toUtf8()).object();
    state.remove(QStringLiteral("newPassword"));
    return state;
}

/// Returns false if the state is not among them. Names need not be unique.
bool take(std::vector<QJsonObject>& states, const QJsonObject& state)
{
    const auto known = std::find(states.begin(), states.end(), state);
    if (known == states.end())
        return false;
    states.erase(known);
    return true;
}

/// The accounts that there should be.
std::vector<QJsonObject> recordedAccounts(Connection& main)
{
    std::vector<QJsonObject> accounts;
    auto rows = main.prepare("SELECT before, after FROM main.journal WHERE subject>='user/' AND subject<'user0'"
                             " ORDER BY id");
    while (rows.step()) {
        if (!rows.isNull(0))
            take(accounts, readState(rows.text(0)));
        if (!rows.isNull(1))
            accounts.push_back(readState(rows.text(1)));
    }
    return accounts;
}

/// As it is by now: only the name and the password that were read are compared with it. Empty if it is gone.
QJsonObject storedState(Connection& book, qint64 row)
{
    auto user = book.prepare("SELECT uname, r_eggrafes, r_klhsimo, r_kvdikoi FROM codes WHERE rowid=?");
    return user.bind(row).step() ? stateOf(user.text(0), {user.boolean(1), user.boolean(2), user.boolean(3)})
                                 : QJsonObject();
}

/// What was changed around the program before, which the next row would not fit.
void completeUsers(Connection& book)
{
    if (!keepsJournal(book))
        return;
    beginJournal(book, book);
    recordFound(book, Authority::program(), unrecordedUsers(book, book));
}

} // namespace

bool isComplete(const QString& name, const QString& password)
{
    return !name.trimmed().isEmpty() && !password.trimmed().isEmpty();
}

std::vector<UserAccount> listUsers(Connection& auxiliary)
{
    auto rows =
        auxiliary.prepare("SELECT rowid, uname, upass, r_eggrafes, r_klhsimo, r_kvdikoi FROM codes ORDER BY rowid");
    std::vector<UserAccount> users;
    while (rows.step())
        users.push_back(
            {rows.integer(0), rows.text(1), rows.text(2), {rows.boolean(3), rows.boolean(4), rows.boolean(5)}});
    return users;
}

qint64 addUser(
    Connection& book, const Authority& authority, const QString& name, const QString& password, Rights rights)
{
    Transaction writing(book, authority);
    completeUsers(book);
    book.prepare("INSERT INTO codes (uname, upass, r_eggrafes, r_klhsimo, r_kvdikoi) VALUES (?,?,?,?,?)")
        .bind(name.trimmed(), password.trimmed(), rights.modifyCash, rights.closeCash, rights.modifyCodes)
        .run();
    const qint64 row = book.lastInsertedKey();
    recordUser(book, authority, JournalAction::Insert, {}, stateOf(name.trimmed(), rights));
    writing.commit();
    return row;
}

bool changeUser(Connection& book, const Authority& authority, const UserAccount& read, const UserAccount& changed)
{
    Transaction writing(book, authority);
    completeUsers(book);
    const QJsonObject before = storedState(book, read.row);
    const int rows = book.prepare("UPDATE codes SET uname=?, upass=?, r_eggrafes=?, r_klhsimo=?, r_kvdikoi=?"
                                  " WHERE rowid=? AND ifnull(uname, '')=? AND ifnull(upass, '')=?")
                         .bind(changed.name.trimmed(), changed.password.trimmed(), changed.rights.modifyCash,
                             changed.rights.closeCash, changed.rights.modifyCodes, read.row, read.name, read.password)
                         .run();
    if (rows == 0)
        return false;
    QJsonObject after = stateOf(changed.name.trimmed(), changed.rights);
    if (changed.password.trimmed() != read.password)
        after[QStringLiteral("newPassword")] = true;
    recordUser(book, authority, JournalAction::Modify, before, after);
    writing.commit();
    return true;
}

bool removeUser(Connection& book, const Authority& authority, const UserAccount& read)
{
    Transaction writing(book, authority);
    completeUsers(book);
    const QJsonObject before = storedState(book, read.row);
    const int rows = book.prepare("DELETE FROM codes WHERE rowid=? AND ifnull(uname, '')=? AND ifnull(upass, '')=?")
                         .bind(read.row, read.name, read.password)
                         .run();
    if (rows == 0)
        return false;
    recordUser(book, authority, JournalAction::Remove, before, {});
    writing.commit();
    return true;
}

UnrecordedUsers unrecordedUsers(Connection& main, Connection& auxiliary)
{
    UnrecordedUsers users{recordedAccounts(main), {}};
    for (const UserAccount& user : listUsers(auxiliary)) {
        QJsonObject state = stateOf(user.name, user.rights);
        if (!take(users.gone, state))
            users.added.push_back(std::move(state));
    }
    return users;
}

void recordFound(Connection& main, const Authority& authority, const UnrecordedUsers& users)
{
    for (const QJsonObject& state : users.gone)
        recordUser(main, authority, JournalAction::Found, state, {});
    for (const QJsonObject& state : users.added)
        recordUser(main, authority, JournalAction::Found, {}, state);
}

} // namespace lorvan
