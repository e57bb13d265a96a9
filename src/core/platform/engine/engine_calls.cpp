#include "platform/engine/engine_calls.h"

#include "platform/files/file_calls.h"
#include "platform/stop_check.h"

#include <QByteArray>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lorvan {
namespace {

bool isSame(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

int refused(int descriptor, int number)
{
    ::close(descriptor);
    errno = number;
    return -1;
}

/// A rollback journal, or the super-journal of a commit over several databases.
bool isJournal(const QByteArray& path)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return name.endsWith("-journal") || name.contains("-mj");
}

bool syncFolderOf(const QByteArray& file)
{
    const QByteArray folder = file.left(std::max<qsizetype>(file.lastIndexOf('/'), 1));
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isDone = FileCalls::current().sync(descriptor) == 0 || errno == EINVAL || errno == ENOSYS;
    ::close(descriptor);
    return isDone;
}

/// Replaces open(). The name must still belong to the opened file after it was opened. The name of a new journal is
/// confirmed here: the engine would do so with the first sync of the journal, but overlook a failure.
int openPlainFile(const char* path, int flags, int mode)
{
    if (std::strcmp(path, "/dev/urandom") == 0) // the engine's source of random numbers
        return ::open(path, flags | O_CLOEXEC, mode);
    const int descriptor = ::open(path, flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, mode);
    if (descriptor < 0)
        return descriptor;
    struct stat opened { };
    struct stat named { };
    if (::fstat(descriptor, &opened) != 0 || !S_ISREG(opened.st_mode))
        return refused(descriptor, EINVAL);
    if (::lstat(path, &named) != 0 || !isSame(opened, named))
        return refused(descriptor, ESTALE);
    if ((flags & O_CREAT) != 0 && isJournal(path) && !syncFolderOf(path)) {
        if (opened.st_size == 0)
            ::unlink(path);
        return refused(descriptor, EIO);
    }
    return descriptor;
}

/// Replaces readlink(): a database that is a link is not opened.
ssize_t followNoLink(const char*, char*, std::size_t)
{
    errno = ELOOP;
    return -1;
}

/// Replaces the calls that read. The engine's check of a file reads all of it in one step.
template <auto Stock, typename... Rest>
ssize_t readUnlessStopped(int descriptor, void* bytes, std::size_t size, Rest... rest)
{
    if (StoppableReading::isStopped()) {
        errno = ECANCELED;
        return -1;
    }
    return Stock(descriptor, bytes, size, rest...);
}

/// The engine syncs the descriptor that it is given. Syncing a file in memory always succeeds...
int confirmed()
{
    static const int memory = ::memfd_create("confirmed", MFD_CLOEXEC);
    return ::fcntl(memory, F_DUPFD_CLOEXEC, 0);
}

/// ...and syncing an event counter always fails.
int unconfirmed()
{
    static const int counter = ::eventfd(0, EFD_CLOEXEC);
    return ::fcntl(counter, F_DUPFD_CLOEXEC, 0);
}

/// Replaces the engine's way to get a folder's descriptor, which it only needs to sync the folder: after making a
/// journal, where that has been done already, and after a deletion. In the latter case it overlooks a folder that
/// cannot be opened, so the folder is synced here and a failure is passed on in a way that the engine notices.
int syncedFolder(const char* file, int* descriptor)
{
    const bool isDeleted = ::access(file, F_OK) != 0;
    *descriptor = !isDeleted || syncFolderOf(file) ? confirmed() : unconfirmed();
    return SQLITE_OK;
}

template <typename Call> void install(sqlite3_vfs* files, const char* name, Call* call)
{
    files->xSetSystemCall(files, name, reinterpret_cast<sqlite3_syscall_ptr>(call));
}

} // namespace

void installEngineCalls()
{
    static std::once_flag once;
    std::call_once(once, [] {
        sqlite3_initialize();
        sqlite3_vfs* const files = sqlite3_vfs_find("unix");
        install(files, "open", openPlainFile);
        install(files, "readlink", followNoLink);
        install(files, "read", readUnlessStopped<::read>);
        install(files, "pread", readUnlessStopped<::pread, off_t>);
        install(files, "pread64", readUnlessStopped<::pread64, off64_t>);
        install(files, "openDirectory", syncedFolder);
    });
}

} // namespace lorvan
