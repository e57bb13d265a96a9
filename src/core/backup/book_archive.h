#pragma once

#include "book/failure_text.h"
#include "platform/files/folder.h"

#include <QString>

#include <stdexcept>

namespace lorvan {

/// The file is not a backup, or not a complete one. what() names it and says in Greek what is wrong.
class BackupUnusable : public std::runtime_error, public PlainlyToldFailure {
public:
    BackupUnusable(const QString& path, const QString& reason);
    [[nodiscard]] QString plainText() const override;
};

/// Writes the two databases in the folder `copy` as a plain tar file into `archive`, which must be empty. Throws
/// BookCopyFailed, and GivenUp if a StopCheck says no.
void packBook(const Folder& copy, File& archive);

/// Unpacks a file made by packBook() into a folder that has no databases yet, readable by the owner only; the disk has
/// confirmed them when it returns. A file that contains anything else, or has holes, is not a backup. The databases
/// themselves are not checked, see proveBook(). Throws BackupUnusable, BookCopyFailed if the folder cannot be written
/// or the disk is full, and GivenUp if a StopCheck says no; what was written by then stays.
void unpackBook(File& archive, const Folder& copy);
/// The same for a file that a user names; it may be a link.
void unpackBook(const QString& path, const Folder& copy);

} // namespace lorvan
