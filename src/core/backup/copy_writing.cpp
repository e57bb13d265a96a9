#include "backup/copy_writing.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/statvfs.h>

namespace lorvan {

BookCopyFailed::BookCopyFailed(const QString& path, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(path, reason).toStdString())
{
}

BookCopyFailed::BookCopyFailed(const FileError& error)
    : BookCopyFailed(error.path(), error.reason())
{
}

QString BookCopyFailed::plainText() const
{
    return QStringLiteral("Το αντίγραφο ασφαλείας δεν γράφτηκε και η βάση έμεινε όπως ήταν.");
}

std::optional<struct stat> statusOf(const Folder& folder, const QString& name)
{
    struct stat found { };
    const int code = ::fstatat(folder.descriptor(), QFile::encodeName(name).constData(), &found, AT_SYMLINK_NOFOLLOW);
    return code == 0 && S_ISREG(found.st_mode) ? std::optional(found) : std::nullopt;
}

void refuseWithoutRoom(const Folder& folder, qint64 bytes)
{
    struct statvfs disk { };
    if (::fstatvfs(folder.descriptor(), &disk) != 0 || disk.f_blocks == 0)
        return;
    if (static_cast<quint64>(bytes) / disk.f_frsize >= disk.f_bavail && bytes > 0)
        throw FileError(folder.path(), ENOSPC);
}

} // namespace lorvan
