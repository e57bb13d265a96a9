#include "app/book_proof.h"

#include "app/book_files.h"
#include "app/schema_upgrade.h"
#include "platform/connection.h"
#include "platform/sql_error.h"
#include "platform/stop_check.h"

#include <optional>

namespace lorvan {
namespace {

Connection openCopy(const QString& path, KeyRing& keys)
{
    return Connection::open(path, keys.keyForCopy(path), Connection::Access::ReadOnly);
}

/// An engine that prepares the query has found its tables and columns.
void requireSchema(Connection& database, std::string_view query)
{
    (void)database.prepare(query);
}

} // namespace

void proveDatabase(const QString& path, KeyRing& keys, const std::function<bool()>& goesOn)
{
    try {
        Connection copy = openCopy(path, keys);
        std::optional<StopCheck> stop;
        if (goesOn)
            stop.emplace(copy, goesOn);
        auto check = copy.prepare("PRAGMA quick_check(1)");
        if (!check.step() || check.text(0) != QLatin1String("ok"))
            throw BookCopyFailed(path, check.text(0));
    } catch (const SqlError& error) {
        throw BookCopyFailed(path, error.engineMessage());
    }
}

void proveBook(const BookFiles& copy, KeyRing& keys, const std::function<bool()>& goesOn)
{
    proveDatabase(copy.auxiliaryDatabase(), keys, goesOn);
    proveDatabase(copy.mainDatabase(), keys, goesOn);
    try {
        Connection auxiliary = openCopy(copy.auxiliaryDatabase(), keys);
        requireSchema(auxiliary, "SELECT hmeraklhsimatos, uname FROM klhsimotameioy, codes");
        Connection main = openCopy(copy.mainDatabase(), keys);
        requireSchema(main,
            "SELECT esoda, ejoda, ypoloipo, energos, omades.perigrafh FROM kinhseis, (SELECT ypoloipo FROM tameio), "
            "kvdikoi,"
            " omades");
        (void)needsUpgrade(main);
    } catch (const SqlError& error) {
        throw BookCopyFailed(copy.dataFolder(), error.engineMessage());
    }
}

} // namespace lorvan
