#include "users/sign_in.h"

#include "platform/engine/connection.h"

namespace lorvan {

bool isBuiltInAdministrator(const QString& name, const QString& password)
{
    return name.toLower() == QLatin1String("wardenly") && password == QLatin1String("73816");
}

std::optional<UserSession> signIn(Connection& auxiliary, const QString& name, const QString& password)
{
    auto row = auxiliary.prepare("SELECT uname, upass, r_eggrafes, r_klhsimo, r_kvdikoi FROM codes"
                                 " WHERE uname=? COLLATE greek AND upass=? COLLATE greek ORDER BY rowid LIMIT 1");
    row.bind(name, password);
    if (!row.step())
        return std::nullopt;
    return UserSession{row.text(0), row.text(1), {row.boolean(2), row.boolean(3), row.boolean(4)}};
}

} // namespace lorvan
