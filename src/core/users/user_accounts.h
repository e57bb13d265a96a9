#pragma once

#include "users/sign_in.h"

#include <vector>

namespace lorvan {

/// A row of the users table.
struct UserAccount {
    qint64 row = 0; ///< Its row number, until it is removed.
    QString name;
    QString password;
    Rights rights;
};

/// True if neither the name nor the password is empty or blank: what a stored account needs.
[[nodiscard]] bool isComplete(const QString& name, const QString& password);

/// The users in the order in which they were added. Names need not be unique.
[[nodiscard]] std::vector<UserAccount> listUsers(Connection& auxiliary);

/// Adds a user, name and password trimmed, and returns the row. One statement. The caller has checked that they are
/// complete; a name that already exists is accepted.
qint64 addUser(Connection& auxiliary, const QString& name, const QString& password, Rights rights);

/// Overwrites an account, name and password trimmed. One statement. Returns false if the row no longer holds the name
/// and password of `read`: the row of a removed user may have been reused.
[[nodiscard]] bool changeUser(Connection& auxiliary, const UserAccount& read, const UserAccount& changed);

/// The same for removing an account.
[[nodiscard]] bool removeUser(Connection& auxiliary, const UserAccount& read);

} // namespace lorvan
