#pragma once

#include "backup/steady_copy.h"
#include "platform/files/folder.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

/// Whose turn a backup in the folder "backup" was, which its name tells.
enum class BackupKind {
    ByHand, ///< lorvan-2026-11-23-101530.tar: never removed by the program.
    Daily ///< lorvan-daily-2026-11-23-101530.tar: the program's own, see backup_retention.h.
};

/// The folder "backup" in the data folder.
[[nodiscard]] QString backupFolder(const BookFiles& book);

/// The same, made where it is missing, for its owner alone. Throws BookCopyFailed, also for a link in its place.
[[nodiscard]] Folder openBackupFolder(const BookFiles& book);

/// A name that is free in a folder: that of `now` or of the first second after it.
[[nodiscard]] QString backupName(const Folder& folder, BackupKind kind, QDateTime now);

/// What backups that were cut short have left in a folder, where nobody is at work on them.
void removeUnfinishedBackups(const Folder& folder) noexcept;

/// Makes one file of both databases of a book, as they are at one moment, while programs go on using it (see
/// copyBook()), and opens it again to prove that it can be restored. Until then it stands in a hidden folder beside its
/// place. Only its owner may read it. That the disk did not confirm its name is noted with noteUnconfirmed(). Needs
/// twice the book's size for the while.
/// Throws BookCopyFailed, also when there is a file of that name, SqlError when the book cannot be read, GivenUp when
/// a StopCheck, asked for every megabyte of each of the four passes and from time to time in the proof, says no;
/// nothing stays behind then.
CopyEffort makeBackup(const BookFiles& book, const Folder& folder, const QString& name, KeyRing& keys);
/// The same under a path that a user names.
CopyEffort makeBackup(const BookFiles& book, const QString& path, KeyRing& keys);

} // namespace lorvan
