#pragma once

#include <QString>

namespace lorvan {

/// Has the disk confirm the names in a folder. Not every file system can; then the names come with its next write.
void syncFolder(const QString& folder);

/// Has the disk confirm the contents of a file. Not for a database that the process has open: closing the file drops
/// its locks. Throws std::runtime_error with the system's reason.
void syncFile(const QString& path);

} // namespace lorvan
