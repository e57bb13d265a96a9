#pragma once

#include <QByteArray>
#include <QString>

namespace lorvan {

class Folder;

/// Whom a lock on a file keeps out.
enum class LockReach {
    Nobody, ///< Two programs can hold the same lock.
    ThisComputer, ///< The mount keeps locks to itself: other computers do not see them.
    Everybody
};

/// Tests this with two descriptors on an existing file of the folder, far behind its contents, and asks the system how
/// the folder is mounted. A file that cannot be opened for writing, or that cannot be locked at all, counts as
/// Everybody.
[[nodiscard]] LockReach lockReach(const Folder& folder, const QString& name);

/// True if the mount that contains `path` (without links) is known not to pass locks on. `mountInfo` is the content of
/// /proc/self/mountinfo.
[[nodiscard]] bool keepsLocksLocal(const QByteArray& mountInfo, const QString& path);

} // namespace lorvan
