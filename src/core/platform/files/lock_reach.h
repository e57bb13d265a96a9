#pragma once

#include <QByteArray>
#include <QString>

namespace lorvan {

class Folder;

/// Whom a lock on a file keeps out.
enum class LockReach {
    Nobody, ///< Two may have the same lock.
    ThisComputer, ///< The mount keeps locks to itself: other computers do not see them.
    Everybody
};

/// Tries it with two descriptors on an existing file of the folder, far behind its contents, and asks the system how
/// the folder is mounted. A file that cannot be opened for writing, or locked at all, counts as Everybody.
[[nodiscard]] LockReach lockReach(const Folder& folder, const QString& name);

/// True where the mount that `path` (without links) lies on is known not to pass locks on. `mountInfo` is what
/// /proc/self/mountinfo says.
[[nodiscard]] bool keepsLocksLocal(const QByteArray& mountInfo, const QString& path);

} // namespace lorvan
