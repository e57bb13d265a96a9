#pragma once

#include "platform/files/file_lock.h"
#include "platform/files/folder.h"

#include <functional>
#include <optional>

namespace lorvan {

/// A hidden temporary folder, for its owner only, whose name nobody can guess. A file in it is locked for the lifetime
/// of the object, so that a folder whose program was killed can be told from one in use. It is removed with all its
/// contents when the object is destroyed, unless it is kept.
class WorkFolder {
public:
    /// The name is `prefix` and 16 hexadecimal digits. Throws FileError, LockRefused.
    WorkFolder(const Folder& parent, const QString& prefix);
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] const Folder& folder() const { return *m_folder; }
    [[nodiscard]] QString name() const;

    void keep() { m_isKept = true; }
    /// Keeps the folder: removes everything from it that is not `wanted` and renames it, inside its parent, to a name
    /// that is free or belongs to an empty folder; the new name is not yet confirmed. Returns those of its contents
    /// that could not be removed. Throws FileError; the folder then has its old name.
    [[nodiscard]] QStringList keepAs(const QString& newName, const QStringList& wanted);
    /// Throws FileError.
    void remove();

    /// For folders that only this computer may consider abandoned: `purpose`, the computer's name and "-".
    [[nodiscard]] static QString prefixHere(const QString& purpose);
    /// True if a work folder can have that name.
    [[nodiscard]] static bool isName(const QString& name, const QString& prefix);
    /// Removes the folders of killed programs, those of earlier releases too, as far as the system lets us. Each is
    /// locked first, and `mayGo` is then asked whether it may be removed.
    static void removeAbandoned(const Folder& parent, const QString& prefix,
        const std::function<bool(const QString& name)>& mayGo = {}) noexcept;
    /// The same for a single folder.
    static void removeIfAbandoned(
        const Folder& parent, const QString& name, const std::function<bool(const QString& name)>& mayGo = {}) noexcept;

private:
    const Folder& m_parent;
    std::optional<Folder> m_folder;
    std::optional<FileLock> m_lock;
    bool m_isKept = false;
};

} // namespace lorvan
