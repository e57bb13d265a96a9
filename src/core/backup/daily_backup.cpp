#include "backup/daily_backup.h"

#include "backup/backup_retention.h"
#include "backup/book_backup.h"
#include "backup/copy_writing.h"
#include "book/failure_text.h"
#include "book/pending_restore.h"
#include "platform/stop_check.h"

#include <QDir>
#include <QTimer>

#include <algorithm>

namespace lorvan {
namespace {

constexpr std::chrono::seconds afterTheClaim{1}; // by then the window that has just been opened is painted
constexpr int secondsToNextAttempt = 15 * 60;

QStringList filesIn(const Folder& folder)
{
    QStringList names = folder.names();
    names.removeIf([&](const QString& name) { return !folder.isFile(name); });
    return names;
}

/// A backup that cannot be deleted does no harm.
QStringList removeOutdated(const Folder& folder, QDate today)
{
    QStringList removed;
    try {
        for (const QString& name : outdatedBackups(filesIn(folder), today)) {
            folder.remove(name);
            removed += name;
        }
        folder.sync();
    } catch (const FileError&) {
        // Tried again with the next day's backup.
    }
    return removed;
}

QString backupOf(QDate day, const QStringList& names)
{
    const auto found =
        std::find_if(names.begin(), names.end(), [day](const QString& name) { return dayOfDailyBackup(name) == day; });
    return found == names.end() ? QString() : *found;
}

} // namespace

std::optional<QString> makeDailyBackup(
    const BookFiles& book, KeyRing& keys, const QDateTime& now, const SecondPlace* second)
{
    removeUndecidedRestores(asCopy([&] { return Folder(book.dataFolder()); }));
    const Folder folder = openBackupFolder(book);
    QString name = backupOf(now.date(), asCopy([&] { return filesIn(folder); }));
    const bool isNew = name.isEmpty();
    QStringList removed;
    if (isNew) {
        name = backupName(folder, BackupKind::Daily, now);
        makeBackup(book, folder, name, keys);
        removed = removeOutdated(folder, now.date());
    }
    if (second && second->isThere()) {
        removeBackups(removed, second->folder());
        copyBackup(folder.pathOf(name), second->folder());
    }
    return isNew ? std::optional(folder.pathOf(name)) : std::nullopt;
}

QDate lastBackupOf(const BookFiles& book, QDate today)
{
    return lastBackupDay(QDir(backupFolder(book)).entryList(QDir::Files), today);
}

DailyBackup::DailyBackup(const BookFiles& book, KeyRing& keys, Clock clock)
    : m_book(book)
    , m_keys(keys)
    , m_second(book)
    , m_clock(std::move(clock))
{
}

DailyBackup::~DailyBackup()
{
    retire();
}

void DailyBackup::markerHeld()
{
    const QDateTime now = m_clock.now();
    if (m_isUnderWay || m_retired || m_doneOn == now.date() || (m_nextAttempt.isValid() && now < m_nextAttempt))
        return;
    m_isUnderWay = true;
    QTimer::singleShot(afterTheClaim, this, &DailyBackup::start);
}

void DailyBackup::start()
{
    if (!m_retired)
        m_thread = std::thread(&DailyBackup::run, this, m_clock.now());
}

/// Runs in the backup's own thread.
void DailyBackup::run(const QDateTime& now)
{
    QString reason;
    bool isMade = false;
    try {
        const StopCheck stop([this] { return !m_retired; });
        makeDailyBackup(m_book, m_keys, now, &m_second);
        isMade = true;
    } catch (const GivenUp&) {
        return;
    } catch (const std::exception& failure) {
        reason = failureText(failure);
    }
    QMetaObject::invokeMethod(
        this, [this, isMade, reason] { end(isMade, reason); }, Qt::QueuedConnection);
}

void DailyBackup::end(bool isMade, const QString& reason)
{
    if (m_retired)
        return;
    m_thread.join();
    m_isUnderWay = false;
    if (isMade) {
        m_doneOn = m_clock.today();
        Q_EMIT made();
    } else {
        m_nextAttempt = m_clock.now().addSecs(secondsToNextAttempt);
        Q_EMIT failed(reason);
    }
}

void DailyBackup::retire()
{
    m_retired = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace lorvan
