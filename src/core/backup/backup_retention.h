#pragma once

#include <QDate>
#include <QStringList>

namespace lorvan {

/// The day of a daily backup; an invalid date for a file of any other name.
[[nodiscard]] QDate dayOfDailyBackup(const QString& fileName);

/// Which of the files in the backup folder have had their time. Kept are all of the last 30 days on which there was a
/// backup, however long ago that is, and of each earlier month the newest. A file with a later date than today's is
/// kept and counts for nothing. Names that are not those of daily backups are never among the result.
[[nodiscard]] QStringList outdatedBackups(const QStringList& fileNames, QDate today);

} // namespace lorvan
