#include "users/user_accounts.h"

#include "platform/engine/connection.h"

namespace lorvan {

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

qint64 addUser(Connection& auxiliary, const QString& name, const QString& password, Rights rights)
{
    auxiliary.prepare("INSERT INTO codes (uname, upass, r_eggrafes, r_klhsimo, r_kvdikoi) VALUES (?,?,?,?,?)")
        .bind(name.trimmed(), password.trimmed(), rights.modifyCash, rights.closeCash, rights.modifyCodes)
        .run();
    return auxiliary.lastInsertedKey();
}

bool changeUser(Connection& auxiliary, const UserAccount& read, const UserAccount& changed)
{
    return auxiliary
               .prepare("UPDATE codes SET uname=?, upass=?, r_eggrafes=?, r_klhsimo=?, r_kvdikoi=?"
                        " WHERE rowid=? AND ifnull(uname, '')=? AND ifnull(upass, '')=?")
               .bind(changed.name.trimmed(), changed.password.trimmed(), changed.rights.modifyCash,
                   changed.rights.closeCash, changed.rights.modifyCodes, read.row, read.name, read.password)
               .run()
        > 0;
}

bool removeUser(Connection& auxiliary, const UserAccount& read)
{
    return auxiliary.prepare("DELETE FROM codes WHERE rowid=? AND ifnull(uname, '')=? AND ifnull(upass, '')=?")
               .bind(read.row, read.name, read.password)
               .run()
        > 0;
}

} // namespace lorvan
