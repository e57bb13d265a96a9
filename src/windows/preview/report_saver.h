#pragma once

#include "document/report_document.h"
#include "preview/background_run.h"

#include <QString>

#include <optional>

namespace lorvan {

class SaveDialog;

/// Saves reports as files that the user names, and keeps the folder for the next time.
class ReportSaver {
public:
    /// Both give the path that was written; nothing when the user has thought better of it. `name` is proposed, without
    /// an ending. A failure is told in a box.
    [[nodiscard]] std::optional<QString> savePdf(
        QWidget* window, BackgroundRun& run, const ReportDocument& document, const QString& name);
    [[nodiscard]] std::optional<QString> saveTable(
        QWidget* window, BackgroundRun& run, const ReportDocument& document, const QString& name);

private:
    [[nodiscard]] std::optional<QString> askPath(SaveDialog& dialog, const QString& name);

    QString m_folder; ///< The one used last.
};

} // namespace lorvan
