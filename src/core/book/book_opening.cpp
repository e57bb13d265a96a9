#include "book/book_opening.h"

#include "book/book_recovery.h"
#include "book/lock_trust.h"
#include "book/schema_guard.h"

namespace lorvan {
namespace {

void refuseWhileHeld(UsageMarker& marker)
{
    if (const auto holder = marker.heldByAnother())
        throw UpgradeMustWait(markerRefusal(*holder).toStdString());
}

void upgradeIfNeeded(Book& book, UsageMarker& marker, const Authority& authority,
    const std::function<OpeningBalance()>& askOpeningBalance, const OpeningSteps& steps)
{
    if (!needsUpgrade(book.main()))
        return;
    refuseWhileHeld(marker);
    const OpeningBalance opening = askOpeningBalance();
    refuseWhileHeld(marker); // the question may have been open for hours
    upgradeSchema(book.main(), book.auxiliary(), authority, opening, steps);
}

} // namespace

Book openBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker, const Authority& authority,
    const std::function<OpeningBalance()>& askOpeningBalance, const OpeningSteps& steps)
{
    recoverBook(files, keys, marker);
    const bool mayWrite = !marker.heldByAnother() && lockReachOf(files) != LockReach::Nobody;
    Book book(files, keys, mayWrite ? Connection::Access::ReadWrite : Connection::Access::ReadOnly);
    refuseForeignObjects(book.main());
    refuseForeignObjects(book.auxiliary());
    upgradeIfNeeded(
        book, marker, authority, askOpeningBalance, steps); // not earlier: a book that cannot be opened is not changed
    book.ensureSchema(steps);
    return book;
}

} // namespace lorvan
