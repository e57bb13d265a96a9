#pragma once

#include "users/sign_in.h"

#include <QJsonObject>

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

/// A change is one transaction over `book`, which holds both databases, and is recorded in the journal. Where the main
/// database cannot be written, `book` is the auxiliary one alone, and the change is recorded when it is found.

/// Adds a user, name and password trimmed, and returns the row. The caller has checked that they are complete; a name
/// that already exists is accepted.
qint64 addUser(
    Connection& book, const Authority& authority, const QString& name, const QString& password, Rights rights);

/// Overwrites an account, name and password trimmed. Returns false if the row no longer holds the name and password of
/// `read`: the row of a removed user may have been reused.
[[nodiscard]] bool changeUser(
    Connection& book, const Authority& authority, const UserAccount& read, const UserAccount& changed);

/// The same for removing an account.
[[nodiscard]] bool removeUser(Connection& book, const Authority& authority, const UserAccount& read);

/// How the accounts differ from what the journal says of them: states as the journal stores them.
struct UnrecordedUsers {
    std::vector<QJsonObject> gone;
    std::vector<QJsonObject> added; ///< In a new journal, all accounts.
    [[nodiscard]] bool isEmpty() const { return gone.empty() && added.empty(); }
};

/// `main` has the journal; it may be the same connection.
[[nodiscard]] UnrecordedUsers unrecordedUsers(Connection& main, Connection& auxiliary);
/// Records them as found, inside the caller's transaction.
void recordFound(Connection& main, const Authority& authority, const UnrecordedUsers& users);

} // namespace lorvan
