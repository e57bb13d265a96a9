#pragma once

#include "platform/folder.h"

#include <functional>

namespace lorvan {

/// Hidden folders in which something is made before it gets its place. They carry the computer's name, and are locked
/// as long as their process lives.

/// What their names begin with, up to the part that differs from one to the next.
[[nodiscard]] QString workFolderPrefix(const QString& purpose);

/// Takes the lock, which lasts as long as the object. False when another process has it.
[[nodiscard]] bool isLocked(const Folder& work);

/// Does what can be done; what is left, the next one to be made removes.
void removeWorkFolder(const Folder& place, const Folder& work) noexcept;

/// Removes those whose processes were killed, `before` having looked at each. Throws FileError.
void removeWorkFolders(
    const Folder& place, const QString& prefix, const std::function<void(const Folder& work)>& before = {});

} // namespace lorvan
