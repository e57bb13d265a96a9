#pragma once

#include <QFileDialog>

#include <vector>

namespace lorvan {

/// A kind of file that can be saved: its text in the list of kinds, and the extension for a name without one.
struct FileKind {
    QString text;
    QString suffix;
};

/// The dialog that asks where to save a file: the toolkit's dialog, with the program's Greek texts on every computer
/// and our icons. It asks before a file is replaced.
class SaveDialog : public QFileDialog {
    Q_OBJECT

public:
    SaveDialog(const QString& title, const std::vector<FileKind>& kinds, QWidget* parent);

private:
    void dress();
};

} // namespace lorvan
