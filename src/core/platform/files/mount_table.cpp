#include "platform/files/mount_table.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <string_view>

namespace lorvan {
namespace {

constexpr std::array<std::string_view, 17> networkTypes{"9p", "afs", "ceph", "cifs", "coda", "fuse.ceph",
    "fuse.curlftpfs", "fuse.davfs", "fuse.davfs2", "fuse.glusterfs", "fuse.gvfsd-fuse", "fuse.s3fs", "fuse.smbnetfs",
    "fuse.sshfs", "nfs", "nfs4", "smb3"};

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

} // namespace

Mount mountOf(const QByteArray& mountInfo, const QString& path)
{
    const QByteArray wanted = QFile::encodeName(path);
    Mount innermost;
    for (const QByteArray& line : mountInfo.split('\n')) {
        const Mount mount = mountIn(line);
        if (holds(mount.point, wanted)
            && mount.point.size() >= innermost.point.size()) // a later mount covers an earlier one
            innermost = mount;
    }
    return innermost;
}

QByteArray mountInfo()
{
    QFile mounts(QStringLiteral("/proc/self/mountinfo"));
    return mounts.open(QIODevice::ReadOnly) ? mounts.readAll() : QByteArray();
}

bool isOnNetwork(const Mount& mount)
{
    return std::any_of(networkTypes.begin(), networkTypes.end(),
        [&](std::string_view type) { return mount.type == QByteArrayView(type.data(), qsizetype(type.size())); });
}

} // namespace lorvan
