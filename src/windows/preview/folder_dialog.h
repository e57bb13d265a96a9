#pragma once

#include <QString>

class QWidget;

namespace lorvan {

/// Ask for an existing folder or file in the toolkit's dialog with the program's look; empty if the user cancels.
/// `start` is where the dialog begins.
[[nodiscard]] QString askFolder(QWidget* parent, const QString& title, const QString& start = {});
[[nodiscard]] QString askFile(
    QWidget* parent, const QString& title, const QString& filter, const QString& suffix, const QString& start = {});

} // namespace lorvan
