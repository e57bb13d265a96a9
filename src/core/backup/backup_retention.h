#pragma once

#include <QDate>
#include <QStringList>

namespace lorvan {

/// The day of a daily backup; an invalid date for a file of any other name.
[[nodiscard]] QDate dayOfDailyBackup(const QString& fileName);

/// The day of the newest backup among them, daily or by hand, that is not after `today`; an invalid date if there is
/// none.
[[nodiscard]] QDate lastBackupDay(const QStringList& fileNames, QDate today);

/// The files in the backup folder that may be deleted. The last 30 days with a backup keep all of theirs, however long
/// ago they are, and each earlier month keeps its newest. A file dated after today is kept and not counted. The result
/// contains names of daily backups only.
[[nodiscard]] QStringList outdatedBackups(const QStringList& fileNames, QDate today);

} // namespace lorvan
