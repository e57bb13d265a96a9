#pragma once

#include "csv/csv_import.h"
#include "preview/background_run.h"

namespace lorvan {

/// An import of CSV files into the book of a window.
struct CsvTaking {
    std::function<CsvImportOutcome(TakenBefore takenBefore, const StepProgress& progress)> take;
    std::function<bool()> isWanted; ///< Whether the window is still there.
    std::function<void()> taken; ///< Something was stored.
};

enum class CsvPlace { Folder, Zip };

/// Asks where the files are; empty if the user cancels.
[[nodiscard]] QString askCsvFiles(QWidget* parent, CsvPlace place);

/// Runs the import with progress. If the book has taken the same before, it asks whether to take it again. Tells what
/// was added, or which lines are wrong. Throws what `take` throws.
void takeCsvFiles(QWidget* parent, BackgroundRun& run, const CsvTaking& taking);

} // namespace lorvan
