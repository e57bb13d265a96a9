#pragma once

#include <QString>

class QSaveFile;

namespace lorvan {

/// Has the disk confirm the names in a folder. Not every file system can; then the names come with its next write.
void syncFolder(const QString& folder);

/// Has the disk confirm the contents of a file. Not for a database that the process has open: closing the file drops
/// its locks. Throws std::runtime_error with the system's reason.
void syncFile(const QString& path);

/// Gives a file its name once the disk has confirmed what was written into it. To be used instead of
/// QSaveFile::commit(), which puts an empty file in the place of the old one where the disk is full. When it returns
/// false, the old file is as it was; errorString() of `file` says why where Qt knows it.
[[nodiscard]] bool commitConfirmed(QSaveFile& file);

} // namespace lorvan
