#pragma once

#include "preview/background_run.h"

namespace lorvan {

class BookFiles;

/// Asks for the file of a backup; empty if the user cancels. `start` is the folder in which the dialog begins.
[[nodiscard]] QString askBackup(QWidget* parent, const QString& title, const QString& start = {});

/// A backup that is about to be taken.
struct BackupQuestion {
    QString title;
    QString text;
    QString backup; ///< Absolute path.
    QString heading; ///< Of the book in it, if it is known.
};

/// Looks into the backup, with progress, shows what it holds and asks the question. False also if the user gave it up.
/// `place` is where its book would go. Throws like lookIntoBackup().
[[nodiscard]] bool showBackupAndAsk(
    QWidget* parent, BackgroundRun& run, const BackupQuestion& question, const BookFiles& place);

} // namespace lorvan
