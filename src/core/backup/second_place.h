#pragma once

#include "platform/files/settings_store.h"

#include <QString>

namespace lorvan {

class BookFiles;

/// A folder on another disk or a stick into which a book's backups are copied as well. The user's settings remember it,
/// for each book its own.
class SecondPlace {
public:
    explicit SecondPlace(const BookFiles& book, SettingsStore store = SettingsStore());

    /// Empty if none was chosen. Throws SettingsError.
    [[nodiscard]] QString folder() const;
    /// Whether it was chosen and is there now; a stick comes and goes. Throws SettingsError.
    [[nodiscard]] bool isThere() const;

    /// An empty folder forgets it. Throws SettingsError, and Refused for a folder that is missing, cannot be written,
    /// or lies in the book's own, where it would be lost with it.
    void choose(const QString& folder) const;

private:
    QString m_dataFolder;
    SettingsStore m_store;
};

/// Copies a backup into another folder under its own name, and reads it back. The copy has that name only when it is
/// whole; only its owner may read it, where the file system knows owners. Does nothing if the same file is there.
/// Throws BookCopyFailed, also if another one has the name, and GivenUp if a StopCheck says no; nothing is left behind
/// then.
void copyBackup(const QString& backup, const QString& folder);

/// Removes those backups from another folder; what cannot be removed stays.
void removeBackups(const QStringList& names, const QString& folder) noexcept;

} // namespace lorvan
