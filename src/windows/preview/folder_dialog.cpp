#include "preview/folder_dialog.h"

#include "preview/save_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace lorvan {
namespace {

QString beginning(const QString& start)
{
    if (!start.isEmpty())
        for (QFileInfo folder(start); !folder.isRoot(); folder = QFileInfo(folder.path()))
            if (folder.isDir())
                return folder.filePath();
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString ask(SaveDialog& dialog)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()
        ? QDir::cleanPath(dialog.selectedFiles().constFirst())
        : QString();
}

} // namespace

QString askFolder(QWidget* parent, const QString& title, const QString& start)
{
    SaveDialog dialog(title, {{QStringLiteral("Φάκελοι"), {}}}, parent);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setDirectory(beginning(start));
    return ask(dialog);
}

QString askFile(
    QWidget* parent, const QString& title, const QString& filter, const QString& suffix, const QString& start)
{
    SaveDialog dialog(title, {{filter, suffix}}, parent);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDirectory(beginning(start));
    return ask(dialog);
}

} // namespace lorvan
