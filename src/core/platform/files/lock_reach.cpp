#include "platform/files/lock_reach.h"

#include "platform/files/file.h"
#include "platform/files/file_calls.h"
#include "platform/files/folder.h"
#include "platform/files/mount_table.h"

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
    return isLocal(mountOf(mountInfo, path));
}

LockReach lockReach(const Folder& folder, const QString& name)
{
    if (bothGetIt(folder, name))
        return LockReach::Nobody;
    return keepsLocksLocal(mountInfo(), folder.path()) ? LockReach::ThisComputer : LockReach::Everybody;
}

} // namespace lorvan
