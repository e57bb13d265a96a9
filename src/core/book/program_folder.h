#pragma once

#include <QString>

namespace lorvan {

/// The folder with the path file, given the one that the running program's own file is in: that one if it holds a path
/// file, or if it can be written to and `installed` is another; else the folder Lorvan in the user's configuration
/// folder, which is made if it is missing and then belongs to the user alone. An installed program so writes nothing
/// beside itself, not for root either, and each user has a path file of his own.
[[nodiscard]] QString programFolder(const QString& ownFolder, const QString& installed);

/// The same, where the build's own `cmake --install` puts programs.
[[nodiscard]] QString programFolder(const QString& ownFolder);

} // namespace lorvan
