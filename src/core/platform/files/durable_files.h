#pragma once

#include "platform/files/file.h"

#include <QString>
#include <QStringList>

namespace lorvan {

/// For paths that the user names, which may lead over links. All throw FileError.

/// Has the disk confirm the names in a folder. A file system that knows no such thing counts as done.
void syncFolder(const QString& folder);

/// Writes a file beside its place, has the disk confirm it, and gives it the name; through a link, that of the file
/// behind it. See Folder::replace(). A failure leaves the old file as it was.
void replaceFile(const QString& path, const QByteArray& content, FileAccess access);

/// Makes the folders on the way that are missing, confirmed by the disk, with FileAccess::Owner for their owner alone.
/// Returns those that were made, the innermost first; a failure takes them back.
QStringList makeFolders(const QString& path, FileAccess access);

} // namespace lorvan
