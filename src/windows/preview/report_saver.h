#pragma once

#include "preview/background_run.h"

#include <QString>

#include <optional>

namespace lorvan {

class ReportPages;
class SaveDialog;

/// Saves reports as files named by the user, and remembers the folder for the next time.
class ReportSaver {
public:
    /// Both return the path that was written; no value if the user cancelled. `name` is the suggested name, without
    /// extension. A failure is shown in a box.
    [[nodiscard]] std::optional<QString> savePdf(
        QWidget* window, BackgroundRun& run, const ReportPages& shown, const QString& name);
    [[nodiscard]] std::optional<QString> saveTable(
        QWidget* window, BackgroundRun& run, const ReportPages& shown, const QString& name);

private:
    [[nodiscard]] std::optional<QString> askPath(SaveDialog& dialog, const QString& name);

    QString m_folder; ///< The folder used last.
};

} // namespace lorvan
