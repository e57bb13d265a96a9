#include "app/book_recovery.h"

#include "app/book.h"
#include "app/lock_trust.h"
#include "app/usage_marker.h"

namespace lorvan {
namespace {

bool hasJournal(const BookFiles& files)
{
    return Connection::hasJournal(files.mainDatabase()) || Connection::hasJournal(files.auxiliaryDatabase());
}

void takeBackChange(const BookFiles& files, KeyRing& keys)
{
    try {
        (void)Book(files, keys, Connection::Access::ReadWrite);
    } catch (const std::exception&) {
        // Stays as it is.
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
        // Left to the administrator.
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
