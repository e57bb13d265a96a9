#pragma once

#include "book/work_folder.h"

#include <QString>

namespace lorvan {

/// A folder in the making. It is filled under a hidden name beside its place and appears there, complete, with keep();
/// until then, and when that fails, everything that was made is removed again. What a killed process of this computer
/// left behind under such a name is removed too, when the next one is made beside it.
class NewFolder {
public:
    /// Throws Refused when something other than an empty folder is in the place already, or nothing can be written
    /// there.
    explicit NewFolder(const QString& place);
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    [[nodiscard]] QString filePath(const QString& name) const { return m_work.folder().pathOf(name); }

    /// Has the disk confirm the files of these names, removes all else and moves the folder into its place. Returns the
    /// names of what could not be removed. Throws Refused; the folder is then not there. A name that the disk does not
    /// confirm is noted with noteUnconfirmed().
    [[nodiscard]] QStringList keep(const QStringList& files);

private:
    QString m_place;
    Folder m_parent;
    WorkFolder m_work;
};

} // namespace lorvan
