#pragma once

#include <QFileDialog>

#include <vector>

namespace lorvan {

/// A kind of file that can be saved: what the list of kinds says, and the ending that a name without one gets.
struct FileKind {
    QString text;
    QString suffix;
};

/// The question where to save a file: the toolkit's dialog, which speaks the program's Greek on every machine, with our
/// icons. It asks before a file is replaced.
class SaveDialog : public QFileDialog {
    Q_OBJECT

public:
    SaveDialog(const QString& title, const std::vector<FileKind>& kinds, QWidget* parent);

private:
    void dress();
};

} // namespace lorvan
