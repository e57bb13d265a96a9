#pragma once

#include "users/sign_in.h"

#include <vector>

namespace lorvan {

/// A row of the users table.
struct UserAccount {
    qint64 row = 0; ///< Where it stands; keeps naming it until it is removed.
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

/// Overwrites the account in its row, name and password trimmed. One statement; false when the row is gone.
[[nodiscard]] bool changeUser(Connection& auxiliary, const UserAccount& account);

/// One statement; a row that is gone already is left at that.
void removeUser(Connection& auxiliary, qint64 row);

} // namespace lorvan
