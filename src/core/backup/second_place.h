#pragma once

#include "platform/files/settings_store.h"
#include "platform/work.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

class BookFiles;
class KeyRing;

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

struct MadeBackup {
    QString path;
    QString second; ///< The folder that it was copied into.
    QString trouble; ///< Why it could not be copied.
    bool isSecondGivenUp = false;
};

/// A backup by hand in the book's folder "backup" and, if the second place is there, its copy. The backup exists,
/// whatever becomes of the copy; with a second place the work can be given up until the copy gets its name. Throws like
/// makeBackupByHand().
[[nodiscard]] MadeBackup makeBackups(const BookFiles& book, KeyRing& keys, const QDateTime& now,
    const SecondPlace& second, const StepProgress& progress);

/// Removes those backups from another folder; what cannot be removed stays.
void removeBackups(const QStringList& names, const QString& folder) noexcept;

} // namespace lorvan
