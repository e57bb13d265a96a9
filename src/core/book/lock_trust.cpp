#include "book/lock_trust.h"

#include "book/book_files.h"
#include "marker/usage_marker.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/sql_error.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"
#include "platform/stop_check.h"

#include <QFileInfo>

#include <sqlite3.h>

#include <chrono>
#include <thread>

namespace lorvan {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds longestWait = 2 * Connection::usualPatience;
constexpr std::chrono::milliseconds betweenAttempts{20};

void waitForJournal(const QString& path)
{
    const auto deadline = steady_clock::now() + longestWait;
    while (Connection::hasJournal(path)) {
        if (steady_clock::now() >= deadline || !StopCheck::goesOn())
            throw SqlError(SQLITE_READONLY_ROLLBACK, QStringLiteral("a rollback journal stands"), path, path);
        std::this_thread::sleep_for(betweenAttempts);
    }
}

} // namespace

LocksUntrusted::LocksUntrusted()
    : std::runtime_error("Στον φάκελο των δεδομένων τα κλειδώματα δεν ισχύουν για τους άλλους υπολογιστές. Η αλλαγή δεν"
                         " έγινε, για να μη χαλάσει το βιβλίο.")
{
}

LockReach lockReachOf(const BookFiles& files)
{
    try {
        return lockReach(Folder(files.dataFolder()), QFileInfo(files.usageMarker()).fileName());
    } catch (const FileError&) {
        return LockReach::Everybody;
    }
}

Connection openBookFile(const QString& path, KeyRing& keys, Connection::Access access)
{
    const LockReach locks = lockReachOf(BookFiles(QFileInfo(path).path()));
    return Connection::open(path, keys.keyFor(path), access, Connection::usualPatience, locks);
}

void admitUnguarded(const BookFiles& files)
{
    const LockReach reach = lockReachOf(files);
    if (reach == LockReach::Nobody)
        throw LocksUntrusted();
    if (reach == LockReach::ThisComputer && UsageMarker(files.usageMarker(), machineIdentity()).heldByAnother())
        throw LocksUntrusted();
    waitForJournal(files.mainDatabase());
    waitForJournal(files.auxiliaryDatabase());
}

Connection openBoth(const BookFiles& files, KeyRing& keys, Connection::Access access)
{
    const FileKey auxiliaryKey = keys.keyFor(files.auxiliaryDatabase());
    Connection book = openBookFile(files.mainDatabase(), keys, access);
    book.attach(files.auxiliaryDatabase(), auxiliaryKey, QStringLiteral("auxiliary"));
    return book;
}

Connection openUnguarded(const BookFiles& files, KeyRing& keys)
{
    admitUnguarded(files);
    try {
        Connection both = openBoth(files, keys);
        if (!both.isReadOnly())
            return both;
    } catch (const SqlError& error) {
        if (error.kind() == SqlError::Kind::Busy || error.kind() == SqlError::Kind::JournalStands)
            throw;
    }
    return openBookFile(files.auxiliaryDatabase(), keys, Connection::Access::ReadWrite);
}

} // namespace lorvan
