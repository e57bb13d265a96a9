#include "app/lock_trust.h"

#include "app/book_files.h"
#include "app/usage_marker.h"
#include "platform/file_error.h"
#include "platform/folder.h"
#include "platform/key_ring.h"
#include "platform/sql_error.h"

#include <QFileInfo>

#include <sqlite3.h>

#include <chrono>
#include <thread>

namespace lorvan {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds longestWait = 2 * Connection::usualPatience;
constexpr std::chrono::milliseconds betweenAttempts{20};
constexpr qsizetype comparedBytes = 1024;

void waitForJournal(const QString& path)
{
    const auto deadline = steady_clock::now() + longestWait;
    while (Connection::hasJournal(path)) {
        if (steady_clock::now() >= deadline)
            throw SqlError(SQLITE_READONLY_ROLLBACK, QStringLiteral("a rollback journal stands"), path, path);
        std::this_thread::sleep_for(betweenAttempts);
    }
}

/// What differs after a change by somebody else.
struct FileState {
    QByteArray start;
    bool hasJournal = false;

    static FileState of(Connection& connection, const QString& path)
    {
        FileState state;
        connection.readFile(QStringLiteral("main"), [&state](const QByteArray& block) {
            state.start = block.first(std::min(comparedBytes, block.size()));
            return false;
        });
        state.hasJournal = Connection::hasJournal(path);
        return state;
    }
    friend bool operator==(const FileState&, const FileState&) = default;
};

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

Connection openUnguarded(const QString& path, KeyRing& keys)
{
    admitUnguarded(BookFiles(QFileInfo(path).path()));
    return Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
}

void readSteadily(Connection& connection, const QString& path, const std::function<void()>& read)
{
    const auto deadline = steady_clock::now() + longestWait;
    for (;;) {
        const bool isLast = steady_clock::now() >= deadline;
        try {
            const FileState before = FileState::of(connection, path);
            read();
            if (!before.hasJournal && before == FileState::of(connection, path))
                return;
        } catch (const SqlError& error) {
            if (isLast || error.kind() == SqlError::Kind::Interrupted)
                throw;
        }
        if (isLast)
            throw SqlError(SQLITE_BUSY, QStringLiteral("the file changes while it is read"), path, path);
        std::this_thread::sleep_for(betweenAttempts);
    }
}

} // namespace lorvan
