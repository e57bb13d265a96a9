#include "app/book_opening.h"

#include "app/book_schema.h"

namespace lorvan {
namespace {

void refuseWhileHeld(UsageMarker& marker)
{
    if (const auto holder = marker.heldByAnother())
        throw UpgradeMustWait(markerRefusal(*holder).toStdString());
}

void upgradeIfNeeded(Connection& main, UsageMarker& marker, const std::function<OpeningBalance()>& askOpeningBalance)
{
    if (!needsUpgrade(main))
        return;
    refuseWhileHeld(marker);
    const OpeningBalance opening = askOpeningBalance();
    refuseWhileHeld(marker); // the question may have stood for hours
    upgradeSchema(main, opening);
}

} // namespace

Book openBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker,
    const std::function<OpeningBalance()>& askOpeningBalance)
{
    Connection main =
        Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    Connection auxiliary = Connection::open(
        files.auxiliaryDatabase(), keys.keyFor(files.auxiliaryDatabase()), Connection::Access::ReadWrite);
    upgradeIfNeeded(main, marker, askOpeningBalance); // only now: a book that cannot be opened is not changed
    if (!marker.heldByAnother()) {
        if (!main.isReadOnly())
            ensureMainIndexes(main);
        if (!auxiliary.isReadOnly())
            ensureAuxiliaryIndexes(auxiliary);
    }
    return {std::move(main), std::move(auxiliary)};
}

} // namespace lorvan
