#pragma once

#include "app/data_folder_settings.h"

#include <QString>

namespace lorvan {

/// The path file DIADROMH.DAT beside the program: where the data folder is, and optionally the book's background colour
/// and heading. Comma-separated fields on one line or several, in Windows-1253. Its name is matched without regard to
/// letter case; a rewritten file keeps the name it has.
class PathFile {
public:
    explicit PathFile(QString programFolder);

    /// A field that is missing or cannot be read keeps its default and does not hide the next one. The folder comes
    /// without blanks around it.
    [[nodiscard]] DataFolderSettings read() const;

    /// Makes the file a single line: the folder alone. Returns false when it cannot be written, or when the folder has
    /// a character that Windows-1253 lacks; the file is then as it was.
    bool writeFolder(const QString& dataFolder) const;

    /// Puts another folder in the first field and keeps the colour and the heading that stand there. Returns false as
    /// writeFolder() does.
    bool replaceFolder(const QString& dataFolder) const;

    [[nodiscard]] QString path() const;

private:
    [[nodiscard]] QStringList fields() const;
    bool write(const QString& content) const;

    QString m_programFolder;
};

} // namespace lorvan
