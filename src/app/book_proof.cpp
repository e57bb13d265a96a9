#include "app/book_proof.h"

#include "app/book_files.h"
#include "app/schema_guard.h"
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

/// A book's database is judged by its schema before anything in it is read.
void prove(const QString& path, KeyRing& keys, const std::function<bool()>& goesOn, std::optional<BookDatabase> kind)
{
    try {
        Connection copy = openCopy(path, keys);
        std::optional<StopCheck> stop;
        if (goesOn)
            stop.emplace(copy, goesOn);
        if (kind)
            requirePlainSchema(copy, *kind);
        auto check = copy.prepare("PRAGMA quick_check(1)");
        if (!check.step() || check.text(0) != QLatin1String("ok"))
            throw BookCopyFailed(path, check.text(0));
        if (kind == BookDatabase::Main)
            (void)needsUpgrade(copy);
    } catch (const SqlError& error) {
        throw BookCopyFailed(path, error.engineMessage());
    } catch (const ForeignObjects& foreign) {
        throw BookCopyFailed(path, QString::fromUtf8(foreign.what()));
    }
}

} // namespace

void proveDatabase(const QString& path, KeyRing& keys, const std::function<bool()>& goesOn)
{
    prove(path, keys, goesOn, std::nullopt);
}

void proveBook(const BookFiles& copy, KeyRing& keys, const std::function<bool()>& goesOn)
{
    prove(copy.auxiliaryDatabase(), keys, goesOn, BookDatabase::Auxiliary);
    prove(copy.mainDatabase(), keys, goesOn, BookDatabase::Main);
}

} // namespace lorvan
