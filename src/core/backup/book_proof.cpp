#include "backup/book_proof.h"

#include "book/book_files.h"
#include "book/schema_guard.h"
#include "book/schema_upgrade.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/stop_check.h"

#include <optional>

namespace lorvan {
namespace {

Connection openCopy(const QString& path, KeyRing& keys)
{
    return Connection::open(path, keys.keyForCopy(path), Connection::Access::ReadOnly);
}

bool isNoDamage(const SqlError& error)
{
    return error.kind() == SqlError::Kind::InputOutput || error.kind() == SqlError::Kind::Interrupted;
}

/// To the engine a page that the disk cannot read looks like damage. If that is so, the file cannot be read to its end
/// either, and this throws.
void checkPages(Connection& copy, const QString& path)
{
    const StoppableReading stoppable;
    auto check = copy.prepare("PRAGMA quick_check(1)");
    if (check.step() && check.text(0) == QLatin1String("ok"))
        return;
    copy.readFile(QStringLiteral("main"), [](const QByteArray&) { return StopCheck::goesOn(); });
    throw BookCopyFailed(path, check.text(0));
}

/// Checks the schema before anything else in the database is read.
void prove(const QString& path, KeyRing& keys, std::optional<BookDatabase> kind)
{
    try {
        Connection copy = openCopy(path, keys);
        if (kind)
            requirePlainSchema(copy, *kind);
        checkPages(copy, path);
        if (kind == BookDatabase::Main)
            (void)needsUpgrade(copy);
    } catch (const SqlError& error) {
        if (isNoDamage(error))
            throw;
        throw BookCopyFailed(path, error.engineMessage());
    } catch (const ForeignObjects& foreign) {
        throw BookCopyFailed(path, QString::fromUtf8(foreign.what()));
    }
}

} // namespace

void proveDatabase(const QString& path, KeyRing& keys)
{
    prove(path, keys, std::nullopt);
}

void proveBook(const BookFiles& copy, KeyRing& keys)
{
    prove(copy.auxiliaryDatabase(), keys, BookDatabase::Auxiliary);
    prove(copy.mainDatabase(), keys, BookDatabase::Main);
}

} // namespace lorvan
