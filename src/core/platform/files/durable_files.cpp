#include "platform/files/durable_files.h"

#include "platform/files/file.h"
#include "platform/files/file_calls.h"
#include "platform/files/folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace lorvan {
namespace {

/// The file that writing to the path would reach: a link may point to a file that does not exist yet.
QFileInfo behindLinks(const QString& path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    QFileInfo info(path);
    for (int links = 0; info.isSymLink() && links < mostLinks; ++links)
        info.setFile(info.symLinkTarget());
    return info;
}

void makeFolder(const QString& path, mode_t mode)
{
    const QFileInfo info(path);
    if (FileCalls::current().makeFolderAt(AT_FDCWD, QFile::encodeName(path).constData(), mode) != 0 && errno != EEXIST)
        throw FileError(path, errno);
    syncFolder(info.path());
}

} // namespace

void syncFolder(const QString& folder)
{
    Folder(folder).sync();
}

void replaceFile(const QString& path, const QByteArray& content, FileAccess access)
{
    const QFileInfo info = behindLinks(path);
    Folder(info.path()).replace(info.fileName(), content, access);
}

QStringList makeFolders(const QString& path, FileAccess access)
{
    QStringList missing;
    for (QString folder = QDir::cleanPath(QFileInfo(path).absoluteFilePath()); !QFileInfo(folder).isDir();
         folder = QFileInfo(folder).path())
        missing += folder;
    const mode_t mode = access == FileAccess::Umask ? 0777 : 0700;
    for (auto folder = missing.crbegin(); folder != missing.crend(); ++folder) {
        try {
            makeFolder(*folder, mode);
        } catch (const FileError&) {
            for (const QString& made : missing)
                QDir().rmdir(made); // if it is not empty, it was not ours
            throw;
        }
    }
    return missing;
}

} // namespace lorvan
