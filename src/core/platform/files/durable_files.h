#pragma once

#include "platform/files/file.h"

#include <QString>
#include <QStringList>

namespace lorvan {

/// For paths given by the user, which may contain links. All functions throw FileError.

/// Makes the disk confirm the names in a folder. If the file system does not support this, it counts as done.
void syncFolder(const QString& folder);

/// Writes a temporary file beside the target, waits until the disk has confirmed it, and renames it. If `path` is a
/// link, the file behind it is replaced. See Folder::replace(). On failure the old file is unchanged.
void replaceFile(const QString& path, const QByteArray& content, FileAccess access);

/// Makes the missing folders of a path and has the disk confirm them; with FileAccess::Owner they are for their owner
/// only. Returns the folders made, innermost first; on failure they are removed again.
QStringList makeFolders(const QString& path, FileAccess access);

} // namespace lorvan
