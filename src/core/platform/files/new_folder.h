#pragma once

#include "platform/files/work_folder.h"

#include <QString>

namespace lorvan {

/// A folder that is filled under a hidden name beside its place, and moved there with keep() once it is complete. If
/// that does not happen or fails, the destructor removes it. A hidden folder that a killed process of this computer has
/// left is removed when the next one is made in the same place.
class NewFolder {
public:
    /// Throws Refused if there is anything but an empty folder in the place, or if nothing can be written there.
    explicit NewFolder(const QString& place);
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    [[nodiscard]] QString filePath(const QString& name) const { return m_work.folder().pathOf(name); }

    /// Waits until the disk has confirmed these files, removes all others and moves the folder into its place. Returns
    /// the names of those that could not be removed. If the disk does not confirm the folder's name, noteUnconfirmed()
    /// is called. Throws Refused; the folder is then not in its place.
    [[nodiscard]] QStringList keep(const QStringList& files);

private:
    QString m_place;
    Folder m_parent;
    WorkFolder m_work;
};

} // namespace lorvan
