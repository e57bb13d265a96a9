#include "book/book_recovery.h"

#include "book/book.h"
#include "book/lock_trust.h"
#include "marker/usage_marker.h"
#include "platform/engine/transaction.h"

#include <string>

namespace lorvan {
namespace {

bool hasJournal(const BookFiles& files)
{
    return Connection::hasJournal(files.mainDatabase()) || Connection::hasJournal(files.auxiliaryDatabase());
}

/// The opening does not roll back a journal that is still empty, but it would be in everybody's way. The next commit
/// removes it.
void endJournal(Connection& database, const QString& path)
{
    if (!Connection::hasJournal(path))
        return;
    Transaction writing(database, Authority::program());
    auto stamp = database.prepare("PRAGMA user_version");
    const qint64 unchanged = stamp.step() ? stamp.integer(0) : 0;
    database.execute("PRAGMA user_version = " + std::to_string(unchanged));
    stamp.reset();
    writing.commit();
}

void takeBackChange(const BookFiles& files, KeyRing& keys)
{
    try {
        Book book(files, keys, Connection::Access::ReadWrite);
        endJournal(book.main(), files.mainDatabase());
        endJournal(book.auxiliary(), files.auxiliaryDatabase());
    } catch (const std::exception&) {
        // It stays as it is.
    }
}

bool isClaimed(UsageMarker& marker)
{
    try {
        return marker.claim();
    } catch (const MarkerError&) {
        return false;
    }
}

} // namespace

void recoverBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker)
{
    if (!BookFiles::exists(files.usageMarker()))
        return;
    try {
        (void)marker.heal();
    } catch (const MarkerError&) {
        // Left for the administrator.
    }
    if (!hasJournal(files) || lockReachOf(files) == LockReach::Nobody)
        return;
    const bool isHolder = marker.owns();
    if (isClaimed(marker))
        takeBackChange(files, keys);
    if (!isHolder)
        marker.release();
}

} // namespace lorvan
