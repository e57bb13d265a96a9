#pragma once

#include <QByteArray>
#include <QString>

namespace lorvan {

/// The names of a book's files in its data folder.
class BookFiles {
public:
    /// Links in the path of the folder are resolved now, if the folder exists; its files must not be links.
    explicit BookFiles(QString dataFolder);

    [[nodiscard]] const QString& dataFolder() const { return m_dataFolder; }
    [[nodiscard]] QString mainDatabase() const; ///< lorvan.mdb: movements, codes, groups, cash days.
    [[nodiscard]] QString auxiliaryDatabase() const; ///< mapcodes.mdb: users and closed days.
    [[nodiscard]] QString usageMarker() const; ///< lorvan.dat.

    /// True when a file of that name exists (a folder or a link does not count).
    [[nodiscard]] static bool exists(const QString& path);

    /// True when the main database is a Jet 4.0 file, the format of older books, which must be imported first.
    [[nodiscard]] bool isOldFormat() const;

private:
    QString m_dataFolder;
};

/// The database password of every book.
[[nodiscard]] QByteArray bookPassword();

} // namespace lorvan
