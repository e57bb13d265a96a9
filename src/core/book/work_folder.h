#pragma once

#include "platform/files/file_lock.h"
#include "platform/files/folder.h"

#include <functional>
#include <optional>

namespace lorvan {

/// A hidden folder of this object's own, for its owner alone, under a name that nobody can guess. A file in it is
/// locked as long as the object lives, so that one whose program was killed is told from one in use. It goes with the
/// object, with all that is in it, unless it is kept.
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
    /// Removes from it what is not `wanted`, gives it another name in its parent, that of an empty folder or a free
    /// one, and keeps it; the name is not yet confirmed. Returns what is in it that could not be removed. Throws
    /// FileError; it is then where it was.
    [[nodiscard]] QStringList keepAs(const QString& newName, const QStringList& wanted);
    /// Throws FileError.
    void remove();

    /// For folders that only this computer may take for abandoned: `purpose`, the computer's name and "-".
    [[nodiscard]] static QString prefixHere(const QString& purpose);
    /// True for what can be the name of a work folder.
    [[nodiscard]] static bool isName(const QString& name, const QString& prefix);
    /// Removes those of killed programs, of earlier releases too, as far as the system lets us. `mayGo` is asked for
    /// each once it is locked.
    static void removeAbandoned(const Folder& parent, const QString& prefix,
        const std::function<bool(const QString& name)>& mayGo = {}) noexcept;
    /// One folder, if nobody holds the lock in it.
    static void removeIfAbandoned(
        const Folder& parent, const QString& name, const std::function<bool(const QString& name)>& mayGo = {}) noexcept;

private:
    const Folder& m_parent;
    std::optional<Folder> m_folder;
    std::optional<FileLock> m_lock;
    bool m_isKept = false;
};

} // namespace lorvan
