#pragma once

#include "book/failure_text.h"
#include "platform/files/folder.h"

#include <QString>

#include <stdexcept>

namespace lorvan {

/// The file is no backup, or not a whole one. what() names it and says in Greek what is wrong.
class BackupUnusable : public std::runtime_error, public PlainlyToldFailure {
public:
    BackupUnusable(const QString& path, const QString& reason);
    [[nodiscard]] QString plainText() const override;
};

/// Writes both databases of a book that was copied into `copy` as a plain tar file into the empty `archive`. Throws
/// BookCopyFailed; GivenUp when a StopCheck says no.
void packBook(const Folder& copy, File& archive);

/// Unpacks a file made by packBook() into a folder without such files, for the owner alone and confirmed by the disk. A
/// file with anything else in it, or with holes, is no backup. Nothing is said about the databases. Throws
/// BackupUnusable, BookCopyFailed when the folder cannot be written or the disk has not the room, GivenUp when a
/// StopCheck says no; what was written stays.
void unpackBook(File& archive, const Folder& copy);
/// The same for a file that a user names; it may be a link.
void unpackBook(const QString& path, const Folder& copy);

} // namespace lorvan
