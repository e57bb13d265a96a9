#pragma once

#include "platform/authority.h"

#include <QString>

#include <optional>

namespace lorvan {

class Connection;

/// The signed-in user, from sign-in to the end of the process.
struct UserSession {
    QString user;
    QString password;
    Rights rights;
};

/// True for the built-in administrator: the name matches in any letter case, the password exactly.
[[nodiscard]] bool isBuiltInAdministrator(const QString& name, const QString& password);

/// The first user with this name and password, ignoring letter case, with blanks counting as typed; no value if there
/// is none. Reads the auxiliary database.
[[nodiscard]] std::optional<UserSession> signIn(Connection& auxiliary, const QString& name, const QString& password);

} // namespace lorvan
