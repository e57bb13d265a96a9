#include "platform/files/lock_reach.h"

#include "platform/files/file.h"
#include "platform/files/file_calls.h"
#include "platform/files/folder.h"

#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <initializer_list>

namespace lorvan {
namespace {

constexpr off_t farByte = off_t{1} << 40;

bool lockByte(const File& file)
{
    return FileCalls::current().lock(file.descriptor(), F_WRLCK, farByte, 1) == 0;
}

bool bothGetIt(const Folder& folder, const QString& name)
{
    try {
        const File first = folder.open(name, Folder::Opening::Write);
        const File second = folder.open(name, Folder::Opening::Write);
        return lockByte(first) && lockByte(second);
    } catch (const FileError&) {
        return false;
    }
}

struct Mount {
    QByteArray point;
    QByteArray type;
    QList<QByteArray> options;
};

/// Blanks and similar characters are written as three octal digits.
QByteArray unescaped(const QByteArray& field)
{
    constexpr qsizetype digits = 3;
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isOctal = false;
        const int code = field.at(i) == '\\' ? field.mid(i + 1, digits).toInt(&isOctal, 8) : 0;
        text += isOctal ? static_cast<char>(code) : field.at(i);
        i += isOctal ? digits : 0;
    }
    return text;
}

/// "36 35 98:0 /root /point options optional... - type source options"
Mount mountIn(const QByteArray& line)
{
    constexpr int pointField = 4;
    const QList<QByteArray> fields = line.split(' ');
    const qsizetype dash = fields.indexOf(QByteArrayLiteral("-"));
    if (dash <= pointField)
        return {};
    return {unescaped(fields.at(pointField)), fields.value(dash + 1), fields.value(dash + 3).split(',')};
}

bool holds(const QByteArray& point, const QByteArray& path)
{
    return !point.isEmpty() && (point == "/" || path == point || path.startsWith(point + '/'));
}

bool isLocal(const Mount& mount)
{
    const auto has = [&](const char* option) { return mount.options.contains(QByteArray(option)); };
    const auto isOneOf = [&](std::initializer_list<const char*> types) {
        return std::any_of(types.begin(), types.end(), [&](const char* type) { return mount.type == type; });
    };
    if (isOneOf({"nfs", "nfs4"}))
        return has("local_lock=all") || has("local_lock=posix") || has("nolock");
    if (isOneOf({"cifs", "smb3"}))
        return has("nobrl");
    if (mount.type == "9p")
        return !has("version=9p2000.L");
    return isOneOf({"vboxsf", "fuse.sshfs", "fuse.rclone", "fuse.gvfsd-fuse", "fuse.davfs", "fuse.davfs2",
        "fuse.curlftpfs", "fuse.smbnetfs", "fuse.s3fs", "fuse.vmhgfs-fuse"});
}

} // namespace

bool keepsLocksLocal(const QByteArray& mountInfo, const QString& path)
{
    const QByteArray wanted = QFile::encodeName(path);
    Mount innermost;
    for (const QByteArray& line : mountInfo.split('\n')) {
        const Mount mount = mountIn(line);
        if (holds(mount.point, wanted)
            && mount.point.size() >= innermost.point.size()) // a later mount covers an earlier one
            innermost = mount;
    }
    return isLocal(innermost);
}

LockReach lockReach(const Folder& folder, const QString& name)
{
    if (bothGetIt(folder, name))
        return LockReach::Nobody;
    QFile mounts(QStringLiteral("/proc/self/mountinfo"));
    const bool isKnownLocal = mounts.open(QIODevice::ReadOnly) && keepsLocksLocal(mounts.readAll(), folder.path());
    return isKnownLocal ? LockReach::ThisComputer : LockReach::Everybody;
}

} // namespace lorvan
