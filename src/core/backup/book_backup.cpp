#include "backup/book_backup.h"

#include "backup/book_archive.h"
#include "backup/book_proof.h"
#include "backup/copy_writing.h"
#include "book/book_files.h"
#include "platform/files/work_folder.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace lorvan {
namespace {

const QString workPurpose = QStringLiteral(".lorvan-backup-");
const QString archiveName = QStringLiteral("archive");
const QString folderName = QStringLiteral("backup");

/// A backup that is being made, in a hidden folder of its own.
class UnfinishedBackup {
public:
    UnfinishedBackup(const Folder& target, const QString& name)
        : m_target(target)
        , m_name(name)
        , m_work(target, WorkFolder::prefixHere(workPurpose))
        , m_archive(m_work.folder().open(archiveName, Folder::Opening::MakeNew, FileAccess::Owner))
    {
        emptyStaging();
    }

    [[nodiscard]] const Folder& staging() const { return *m_staging; }

    void pack()
    {
        packBook(staging(), m_archive);
        m_archive.sync();
    }

    void prove(KeyRing& keys)
    {
        emptyStaging();
        try {
            m_archive.seek(0);
            unpackBook(m_archive, staging());
        } catch (const BackupUnusable& damaged) {
            throw BookCopyFailed(m_target.pathOf(m_name), QString::fromUtf8(damaged.what()));
        }
        try {
            proveBook(BookFiles(staging().path()), keys);
        } catch (const BookCopyFailed& damaged) {
            throw BookCopyFailed(m_target.pathOf(m_name),
                QStringLiteral(
                    "όσα αντιγράφηκαν δεν διαβάζονται σωστά, άρα βλάβη έχει μάλλον το ίδιο το βιβλίο. Τη δείχνει"
                    " η εντολή lorvan-data check.\n")
                    + QString::fromUtf8(damaged.what()).remove(staging().path() + u'/'));
        }
    }

    /// Once it has its name the backup exists, whatever fails afterwards.
    void complete()
    {
        m_work.folder().rename(archiveName, m_target, m_name);
        m_target.confirm();
    }

private:
    void emptyStaging()
    {
        const QString name = QStringLiteral("book");
        m_work.folder().removeTree(name);
        m_staging = m_work.folder().openOrMakeFolder(name);
    }

    const Folder& m_target;
    QString m_name;
    WorkFolder m_work;
    File m_archive;
    std::optional<Folder> m_staging;
};

/// Earlier releases made the archive, and a folder beside it, in the backup folder itself. Both are removed if no
/// program has the archive locked.
void removeEarlierForm(const Folder& folder, const QString& part)
{
    try {
        const FileLock lock(folder, part, FileLock::Missing::Refuse);
        const QString staging = u'.' + part;
        if (folder.kindOf(staging) == Folder::Kind::Folder)
            folder.removeTree(staging);
        folder.remove(part);
    } catch (const std::exception&) {
        // In use, or it cannot be removed; it does no harm.
    }
}

} // namespace

QString backupFolder(const BookFiles& book)
{
    return book.dataFolder() + u'/' + folderName;
}

Folder openBackupFolder(const BookFiles& book)
{
    return asCopy([&] {
        const Folder data(book.dataFolder());
        const bool isNew = !data.exists(folderName);
        Folder folder = data.openOrMakeFolder(folderName);
        if (isNew)
            data.sync();
        return folder;
    });
}

QString backupName(const Folder& folder, BackupKind kind, QDateTime now)
{
    const QString pattern =
        kind == BackupKind::Daily ? QStringLiteral("lorvan-daily-%1.tar") : QStringLiteral("lorvan-%1.tar");
    for (;; now = now.addSecs(1)) {
        const QString name = pattern.arg(now.toString(QStringLiteral("yyyy-MM-dd-HHmmss")));
        if (!folder.exists(name))
            return name;
    }
}

void removeUnfinishedBackups(const Folder& folder) noexcept
{
    static const QRegularExpression earlierForm(QStringLiteral("\\Alorvan-(daily-)?[-0-9]+\\.tar\\.part\\z"));
    try {
        WorkFolder::removeAbandoned(folder, WorkFolder::prefixHere(workPurpose));
        // Names of earlier releases.
        WorkFolder::removeAbandoned(folder, workPurpose);
        for (const QString& name : folder.names()) {
            if (earlierForm.match(name).hasMatch())
                removeEarlierForm(folder, name);
        }
    } catch (const std::exception&) {
        // What is left does no harm.
    }
}

CopyEffort makeBackup(const BookFiles& book, const Folder& folder, const QString& name, KeyRing& keys)
{
    if (folder.exists(name))
        throw BookCopyFailed(folder.pathOf(name), QStringLiteral("υπάρχει ήδη."));
    removeUnfinishedBackups(folder);
    try {
        return asCopy([&] {
            beginStep(QStringLiteral("Αντιγράφεται το βιβλίο…"));
            UnfinishedBackup backup(folder, name);
            const CopyEffort effort = copyBook(book, backup.staging(), keys);
            backup.pack();
            beginStep(QStringLiteral("Ανοίγεται ξανά και ελέγχεται το αντίγραφο…"));
            backup.prove(keys);
            decideOrGiveUp();
            backup.complete();
            return effort;
        });
    } catch (const LockRefused& refusal) {
        throw BookCopyFailed(folder.pathOf(name), QString::fromUtf8(refusal.what()));
    } catch (const std::exception&) {
        if (!StopCheck::goesOn())
            throw GivenUp(); // whichever step failed because of it
        throw;
    }
}

CopyEffort makeBackup(
    const BookFiles& book, const Folder& folder, const QString& name, KeyRing& keys, const StepProgress& progress)
{
    constexpr qint64 megabyte = 1 << 20;
    constexpr qint64 passes = 5; // two that copy, packing, unpacking and, roughly, the proof
    const qint64 size = QFileInfo(book.mainDatabase()).size() + QFileInfo(book.auxiliaryDatabase()).size();
    const qint64 all = (size / megabyte + 1) * passes;
    qint64 done = 0;
    const StopCheck counting([&] {
        progress(std::min(++done, all), all);
        return true;
    });
    return makeBackup(book, folder, name, keys);
}

QString makeBackupByHand(const BookFiles& book, KeyRing& keys, const QDateTime& now, const StepProgress& progress)
{
    const Folder folder = openBackupFolder(book);
    const QString name = backupName(folder, BackupKind::ByHand, now);
    makeBackup(book, folder, name, keys, progress);
    return folder.pathOf(name);
}

CopyEffort makeBackup(const BookFiles& book, const QString& path, KeyRing& keys)
{
    const QFileInfo file(path);
    const Folder folder = asCopy([&] { return Folder(file.absolutePath()); });
    return makeBackup(book, folder, file.fileName(), keys);
}

} // namespace lorvan
