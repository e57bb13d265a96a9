#pragma once

#include <QString>

#include <sched.h>
#include <sys/mount.h>

namespace lorvan::test {

/// Mounts in a namespace of the process's own, so that nothing outlives it and nobody else sees it.
class Mount {
public:
    /// A file system in memory of 640 kB over the folder.
    [[nodiscard]] static bool smallDisk(const QString& folder)
    {
        return ownNamespace() && ::mount("tmpfs", folder.toUtf8().constData(), "tmpfs", 0, "size=640k") == 0;
    }
    /// The folder as it is, but for reading only.
    [[nodiscard]] static bool readOnly(const QString& folder)
    {
        const QByteArray path = folder.toUtf8();
        return ownNamespace() && ::mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr) == 0
            && ::mount(nullptr, path.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
    }
    static void undo(const QString& folder) { ::umount2(folder.toUtf8().constData(), MNT_DETACH); }

private:
    static bool ownNamespace()
    {
        static const bool entered =
            ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        return entered;
    }
};

} // namespace lorvan::test
