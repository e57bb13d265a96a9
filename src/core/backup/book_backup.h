#pragma once

#include "backup/steady_copy.h"
#include "platform/files/folder.h"
#include "platform/work.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

/// Who made a backup in the folder "backup"; its name says so.
enum class BackupKind {
    ByHand, ///< A user: lorvan-2026-11-23-101530.tar. The program never deletes it.
    Daily ///< The program: lorvan-daily-2026-11-23-101530.tar. It is deleted as backup_retention.h says.
};

/// The folder "backup" in the data folder.
[[nodiscard]] QString backupFolder(const BookFiles& book);

/// Opens that folder, and makes it first if it is missing, for its owner only. Throws BookCopyFailed, also if there is
/// a link in its place.
[[nodiscard]] Folder openBackupFolder(const BookFiles& book);

/// A file name that is free in the folder: with the time `now`, or the first second after it that is free.
[[nodiscard]] QString backupName(const Folder& folder, BackupKind kind, QDateTime now);

/// Removes from a folder what unfinished backups have left there, unless a program is still working on it.
void removeUnfinishedBackups(const Folder& folder) noexcept;

/// Makes one file of both databases, in the state of one moment, while programs go on using the book (see copyBook()),
/// and unpacks it again to prove that it can be restored. Until then it is in a hidden folder in `folder`. Only its
/// owner may read it. Meanwhile it needs disk space of twice the book's size. If the disk does not confirm the file's
/// name, noteUnconfirmed() is called.
/// Throws BookCopyFailed, also if a file of that name exists, SqlError if the book cannot be read, and GivenUp if a
/// StopCheck says no, which is asked after every megabyte, or before the file gets its name; nothing is left behind
/// then.
CopyEffort makeBackup(const BookFiles& book, const Folder& folder, const QString& name, KeyRing& keys);
/// The same, telling how far it is: after each megabyte, about how many of how many.
CopyEffort makeBackup(
    const BookFiles& book, const Folder& folder, const QString& name, KeyRing& keys, const StepProgress& progress);
/// A backup by hand in the folder "backup", which is made if it is missing. Returns its path.
QString makeBackupByHand(const BookFiles& book, KeyRing& keys, const QDateTime& now, const StepProgress& progress);
/// The first one for a path given by the user.
CopyEffort makeBackup(const BookFiles& book, const QString& path, KeyRing& keys);

} // namespace lorvan
