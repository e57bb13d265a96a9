#include "book/program_folder.h"

#include "book/path_file.h"
#include "platform/files/settings_store.h"

#include <QDir>
#include <QFileInfo>

namespace lorvan {
namespace {

bool isSameFolder(const QString& one, const QString& other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath();
}

/// If it cannot be made, whoever writes into it finds out.
QString userFolder()
{
    const QString folder = QFileInfo(SettingsStore().path()).absolutePath();
    if (!QFileInfo::exists(folder)) {
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return folder;
}

} // namespace

QString programFolder(const QString& ownFolder, const QString& installed)
{
    if (QFileInfo::exists(PathFile(ownFolder).path()))
        return ownFolder;
    if (QFileInfo(ownFolder).isWritable() && !isSameFolder(ownFolder, installed))
        return ownFolder;
    return userFolder();
}

QString programFolder(const QString& ownFolder)
{
    return programFolder(ownFolder, QStringLiteral(LORVAN_INSTALL_FOLDER));
}

} // namespace lorvan
