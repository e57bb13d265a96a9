#include "app/book_backup.h"

#include "app/book_archive.h"
#include "app/book_files.h"
#include "app/book_proof.h"
#include "platform/durable_files.h"
#include "platform/file_lock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <unistd.h>

namespace lorvan {
namespace {

const QString partEnding = QStringLiteral(".part");

QString stagingOf(const QString& path)
{
    const QFileInfo info(path);
    return QStringLiteral("%1/.%2%3").arg(info.path(), info.fileName(), partEnding);
}

/// A backup in the making, locked: one that is not locked is what a killed program has left.
class UnfinishedBackup {
public:
    explicit UnfinishedBackup(const QString& path)
        : m_path(path)
        , m_part(path + partEnding)
        , m_staging(stagingOf(path))
    {
        try {
            m_lock.emplace(Folder(QFileInfo(m_part).path()), QFileInfo(m_part).fileName());
        } catch (const LockRefused& refusal) {
            throw BookCopyFailed(m_part, QString::fromUtf8(refusal.what()).section(QStringLiteral(": "), -1));
        }
        emptyStaging();
    }
    ~UnfinishedBackup()
    {
        QDir(m_staging).removeRecursively();
        if (!m_isComplete)
            QFile::remove(m_part);
    }
    UnfinishedBackup(const UnfinishedBackup&) = delete;
    UnfinishedBackup& operator=(const UnfinishedBackup&) = delete;

    [[nodiscard]] BookFiles staging() const { return BookFiles(m_staging); }

    void emptyStaging()
    {
        QDir(m_staging).removeRecursively();
        if (!QDir().mkdir(m_staging))
            throw BookCopyFailed(m_staging, qt_error_string(errno));
    }

    void pack(const std::function<bool()>& goesOn)
    {
        if (::ftruncate(m_lock->file().descriptor(), 0) != 0)
            throw BookCopyFailed(m_part, qt_error_string(errno));
        packBook(staging(), m_lock->file().descriptor(), m_part, goesOn);
        if (::fsync(m_lock->file().descriptor()) != 0)
            throw BookCopyFailed(m_part, qt_error_string(errno));
    }

    void prove(KeyRing& keys, const std::function<bool()>& goesOn)
    {
        emptyStaging();
        try {
            unpackBook(m_part, staging(), goesOn);
        } catch (const BackupUnusable& damaged) {
            throw BookCopyFailed(m_part, QString::fromUtf8(damaged.what()));
        }
        try {
            proveBook(staging(), keys, goesOn);
        } catch (const BookCopyFailed& damaged) {
            throw BookCopyFailed(m_path,
                QStringLiteral(
                    "όσα αντιγράφηκαν δεν διαβάζονται σωστά, άρα βλάβη έχει μάλλον το ίδιο το βιβλίο. Τη δείχνει"
                    " η εντολή lorvan-data check.\n")
                    + QString::fromUtf8(damaged.what()).remove(m_staging + u'/'));
        }
    }

    void complete()
    {
        QFile file(m_part);
        if (!file.rename(m_path))
            throw BookCopyFailed(m_path, file.errorString());
        m_isComplete = true;
        syncFolder(QFileInfo(m_path).path());
    }

private:
    QString m_path;
    QString m_part;
    QString m_staging;
    std::optional<FileLock> m_lock;
    bool m_isComplete = false;
};

void removeUnfinished(const QString& path)
{
    try {
        const FileLock lock(
            Folder(QFileInfo(path).path()), QFileInfo(path).fileName() + partEnding, FileLock::Missing::Refuse);
        QDir(stagingOf(path)).removeRecursively();
        QFile::remove(path + partEnding);
    } catch (const LockRefused&) {
        // Somebody is at work on it.
    }
}

} // namespace

QString backupFolder(const BookFiles& book)
{
    return book.dataFolder() + QStringLiteral("/backup");
}

QString backupPath(const BookFiles& book, BackupKind kind, QDateTime now)
{
    const QString pattern = backupFolder(book)
        + (kind == BackupKind::Daily ? QStringLiteral("/lorvan-daily-%1.tar") : QStringLiteral("/lorvan-%1.tar"));
    for (;; now = now.addSecs(1)) {
        const QString path = pattern.arg(now.toString(QStringLiteral("yyyy-MM-dd-HHmmss")));
        if (!QFileInfo::exists(path))
            return path;
    }
}

void removeUnfinishedBackups(const BookFiles& book)
{
    const QDir folder(backupFolder(book));
    const QStringList patterns{
        QStringLiteral("lorvan-[0-9]*.tar") + partEnding, QStringLiteral("lorvan-daily-[0-9]*.tar") + partEnding};
    for (const QString& name : folder.entryList(patterns, QDir::Files))
        removeUnfinished(folder.filePath(name.chopped(partEnding.size())));
}

CopyReport makeBackup(const BookFiles& book, const QString& path, KeyRing& keys, const std::function<bool()>& goesOn)
{
    if (QFileInfo::exists(path))
        throw BookCopyFailed(path, QStringLiteral("υπάρχει ήδη."));
    UnfinishedBackup backup(path);
    try {
        const CopyReport report = copyBook(book, backup.staging(), keys, goesOn);
        backup.pack(goesOn);
        backup.prove(keys, goesOn);
        backup.complete();
        return report;
    } catch (const std::exception&) {
        if (goesOn && !goesOn())
            throw GivenUp(); // whatever it was that noticed it
        throw;
    }
}

} // namespace lorvan
