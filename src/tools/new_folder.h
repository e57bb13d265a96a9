#pragma once

#include <QString>
#include <QTemporaryDir>

namespace lorvan {

/// A folder in the making. It is filled under a hidden name beside its place and appears there, complete, with keep();
/// until then, and when that fails, everything that was made is removed again. What a killed process of this computer
/// left behind under such a name is removed too, when the next one is made beside it.
class NewFolder {
public:
    /// Throws Refused when something other than an empty folder is in the place already, or nothing can be written
    /// there.
    explicit NewFolder(const QString& place);
    ~NewFolder();
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    [[nodiscard]] QString filePath(const QString& name) const { return m_staging.filePath(name); }

    /// Has the disk confirm all files and moves the folder into its place. Throws Refused.
    void keep();

private:
    QString m_place;
    QTemporaryDir m_staging;
    int m_lock; ///< Held on the folder: it is in use.
};

} // namespace lorvan
