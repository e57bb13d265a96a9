#pragma once

#include "preview/background_run.h"

#include <optional>

namespace lorvan {

class BookFiles;
class Clock;

/// Puts a backup into the folder of a book, with progress, and returns the report; no value if the user gave it up in
/// time. Once the restore is decided, it is completed. Throws like restoreBook().
[[nodiscard]] std::optional<QString> restoreWithProgress(
    QWidget* parent, BackgroundRun& run, const QString& backup, const BookFiles& book, const Clock& clock);

} // namespace lorvan
