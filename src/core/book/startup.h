#pragma once

#include "book/path_file.h"

namespace lorvan {

enum class StartOutcome {
    SignIn, ///< The data folder holds a main database: show the sign-in window.
    PathWritten, ///< No usable path; the program folder was written into the path file. Say so and end.
    PathUnwritable, ///< No usable path, and the program folder has characters that the path file cannot hold.
    DatabaseMissing, ///< The data folder has no main database. Say so and end.
    RestoreUnfinished, ///< A restore that was cut short cannot be finished. Say why and end.
    OldFormat, ///< The main database is of the older format and must be imported. Say so and end.
};

struct StartDecision {
    StartOutcome outcome;
    DataFolderSettings settings;
    QString trouble; ///< For RestoreUnfinished: what failureText() says.
};

/// Reads the path file in the program folder and decides how the program starts. A path that is empty or a number
/// counts as none; failures of reading and writing the path file are passed over. A restore of the book that was cut
/// short is finished on the way.
[[nodiscard]] StartDecision decideStart(const QString& programFolder);

} // namespace lorvan
