#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lorvan {

/// What the path file says. Filled at start-up and not changed afterwards.
struct DataFolderSettings {
    /// The system colour of button faces: not a colour of the book's own.
    static constexpr std::int32_t systemButtonFace = static_cast<std::int32_t>(0x8000000Fu);
    /// Below this a background colour is no colour of the book's own, and the window's own serves.
    static constexpr std::int32_t firstOwnColour = 1000;

    QString dataFolder; ///< Holds lorvan.mdb, mapcodes.mdb and lorvan.dat; without a trailing separator.
    std::int32_t backgroundColour = systemButtonFace; ///< 0x00BBGGRR.
    QString heading = QStringLiteral("Κεντρικό"); ///< The book's name in the main window and on reports.

    [[nodiscard]] bool hasOwnColour() const { return backgroundColour >= firstOwnColour; }
};

/// The path file DIADROMH.DAT beside the program: where the data folder is, and optionally the book's background colour
/// and heading. Comma-separated fields on one line or several. A file with a mark of UTF-8, or one that is valid UTF-8
/// with a letter beyond ASCII, is read as UTF-8, every other as Windows-1253, in which it is written unless that lacks
/// a character of the heading. Its name is matched without regard to letter case; a rewritten file keeps the name it
/// has.
class PathFile {
public:
    explicit PathFile(QString programFolder);

    /// A field that is missing or cannot be read keeps its default and does not hide the next one. The folder comes
    /// without blanks around it, a quoted heading with those between its quotes; a heading that is there but empty is
    /// empty.
    [[nodiscard]] DataFolderSettings read() const;

    /// Makes the file a single line: the folder alone. Returns false when it cannot be written, or when the folder has
    /// a character that Windows-1253 lacks; the file is then as it was.
    bool writeFolder(const QString& dataFolder) const;

    /// Puts another folder in the first field and keeps the colour and the heading that stand there. Returns false as
    /// writeFolder() does, and when what stands there cannot be read.
    bool replaceFolder(const QString& dataFolder) const;

    [[nodiscard]] QString path() const;

private:
    /// Empty where there is no file; nothing where it is there and cannot be read.
    [[nodiscard]] std::optional<QStringList> fields() const;
    bool write(const QString& dataFolder, const QStringList& others) const;

    QString m_programFolder;
};

} // namespace lorvan
