#pragma once

#include "book/path_file.h"

namespace lorvan {

enum class StartOutcome {
    SignIn, ///< The data folder holds a main database: show the sign-in window.
    PathWritten, ///< No usable path; the program folder was written into the path file. Say so and exit.
    PathUnwritable, ///< No usable path, and the program folder has characters that the path file cannot hold.
    DatabaseMissing, ///< The data folder has no main database. Say so and exit.
    RestoreUnfinished, ///< An interrupted restore cannot be finished. Say why and exit.
    OldFormat, ///< The main database is in the older format and must be imported. Say so and exit.
};

struct StartDecision {
    StartOutcome outcome;
    DataFolderSettings settings;
    QString trouble; ///< For RestoreUnfinished: the result of failureText().
};

/// Whether the settings name a data folder: not if it is empty or a number.
[[nodiscard]] bool namesFolder(const DataFolderSettings& settings);

/// Reads the path file in the program folder (see program_folder.h) and decides how the program starts. A path that is
/// empty or a number counts as none; errors in reading and writing the path file are ignored. An interrupted restore of
/// the book is finished first.
[[nodiscard]] StartDecision decideStart(const QString& programFolder);

} // namespace lorvan
