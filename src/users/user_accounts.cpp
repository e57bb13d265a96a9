#include "users/user_accounts.h"

#include "platform/connection.h"

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

bool changeUser(Connection& auxiliary, const UserAccount& account)
{
    return auxiliary.prepare("UPDATE codes SET uname=?, upass=?, r_eggrafes=?, r_klhsimo=?, r_kvdikoi=? WHERE rowid=?")
               .bind(account.name.trimmed(), account.password.trimmed(), account.rights.modifyCash,
                   account.rights.closeCash, account.rights.modifyCodes, account.row)
               .run()
        > 0;
}

void removeUser(Connection& auxiliary, qint64 row)
{
    auxiliary.prepare("DELETE FROM codes WHERE rowid=?").bind(row).run();
}

} // namespace lorvan
