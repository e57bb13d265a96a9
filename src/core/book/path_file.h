#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lorvan {

/// The content of the path file. Read at start-up and not changed afterwards.
struct DataFolderSettings {
    /// The system colour of button faces, which does not count as a colour of the book's own.
    static constexpr std::int32_t systemButtonFace = static_cast<std::int32_t>(0x8000000Fu);
    /// Below this value a background colour is not the book's own, and the window's default is used.
    static constexpr std::int32_t firstOwnColour = 1000;

    QString dataFolder; ///< Holds lorvan.mdb, mapcodes.mdb and lorvan.dat; without a trailing separator.
    std::int32_t backgroundColour = systemButtonFace; ///< 0x00BBGGRR.
    QString heading = QStringLiteral("Κεντρικό"); ///< The book's name in the main window and on reports.

    [[nodiscard]] bool hasOwnColour() const { return backgroundColour >= firstOwnColour; }
};

/// The path file DIADROMH.DAT beside the program: where the data folder is, and optionally the book's background colour
/// and heading. Comma-separated fields on one line or several. A file with a UTF-8 byte order mark, or one that is
/// valid UTF-8 with a letter beyond ASCII, is read as UTF-8, every other as Windows-1253. It is written in Windows-1253
/// unless that lacks a character of the heading. Its name is matched without regard to letter case; a rewritten file
/// keeps its name.
class PathFile {
public:
    explicit PathFile(QString programFolder);

    /// A field that is missing or cannot be read keeps its default; the fields after it are still read. Blanks around
    /// the folder are removed; a quoted heading keeps those inside its quotes; a heading that is present but empty is
    /// empty.
    [[nodiscard]] DataFolderSettings read() const;

    /// Writes the file as a single line with only the folder. Returns false if it cannot be written, or if the folder
    /// has a character that Windows-1253 lacks; the file is then unchanged.
    bool writeFolder(const QString& dataFolder) const;

    /// Replaces the folder in the first field and keeps the colour and the heading. Returns false like writeFolder(),
    /// and if the existing content cannot be read.
    bool replaceFolder(const QString& dataFolder) const;

    /// Replaces all three fields. Returns false like writeFolder().
    bool replace(const DataFolderSettings& settings) const;

    [[nodiscard]] QString path() const;

private:
    /// An empty list if there is no file; no value if there is one that cannot be read.
    [[nodiscard]] std::optional<QStringList> fields() const;
    bool write(const QString& dataFolder, const QStringList& others) const;

    QString m_programFolder;
};

} // namespace lorvan
