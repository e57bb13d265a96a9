#pragma once

#include "users/sign_in.h"

#include <vector>

namespace lorvan {

/// A row of the users table.
struct UserAccount {
    qint64 row = 0; ///< Where it stands until it is removed.
    QString name;
    QString password;
    Rights rights;
};

/// True when neither name nor password is empty or blanks alone: what a stored account needs.
[[nodiscard]] bool isComplete(const QString& name, const QString& password);

/// The users in the order in which they were added. Names need not differ.
[[nodiscard]] std::vector<UserAccount> listUsers(Connection& auxiliary);

/// Adds a user, name and password trimmed, and returns the row. One statement. The caller has checked that they are
/// complete; a name that exists already is accepted.
qint64 addUser(Connection& auxiliary, const QString& name, const QString& password, Rights rights);

/// Overwrites an account, name and password trimmed. One statement; false when its row no longer holds the name and
/// password that were read, as the row of a removed user may have gone to another.
[[nodiscard]] bool changeUser(Connection& auxiliary, const UserAccount& read, const UserAccount& changed);

/// The same for a removal.
[[nodiscard]] bool removeUser(Connection& auxiliary, const UserAccount& read);

} // namespace lorvan
