#include "support/watched_disk.h"

#include "platform/files/file_calls.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace lorvan::test {
namespace {

DiskLog* currentLog = nullptr;
DiskFault* currentFault = nullptr;

bool strikes()
{
    return currentFault && currentFault->strikes();
}

Inode inodeAt(int descriptor)
{
    struct stat found { };
    ::fstat(descriptor, &found);
    return {found.st_dev, found.st_ino};
}

/// A name and the folder that it is in.
struct Place {
    Place(int folder, const char* path)
    {
        const QByteArray whole(path);
        const qsizetype slash = whole.lastIndexOf('/');
        name = whole.sliced(slash + 1);
        struct stat found { };
        const QByteArray outer = slash < 0 ? QByteArray(".") : whole.first(std::max<qsizetype>(slash, 1));
        ::fstatat(folder, outer.constData(), &found, 0);
        inode = {found.st_dev, found.st_ino};
    }
    Inode inode;
    QByteArray name;
};

bool exists(int folder, const char* name)
{
    struct stat found { };
    return ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0;
}

QByteArray bytesOf(const void* bytes, std::size_t size)
{
    return {static_cast<const char*>(bytes), static_cast<qsizetype>(size)};
}

const char* beingOpened = nullptr; ///< A name that the engine is about to make.

void noteOpened()
{
    struct stat found { };
    if (const char* const name = std::exchange(beingOpened, nullptr); currentLog && name && ::lstat(name, &found) == 0)
        currentLog->made(Place(AT_FDCWD, name).inode, Place(AT_FDCWD, name).name, {found.st_dev, found.st_ino});
}

class WatchedCalls : public FileCalls {
public:
    int openAt(int folder, const char* name, int flags, mode_t mode) override
    {
        if (strikes())
            return -1;
        const bool isNew = (flags & O_CREAT) != 0 && !exists(folder, name);
        const int descriptor = FileCalls::openAt(folder, name, flags, mode);
        if (!currentLog || descriptor < 0)
            return descriptor;
        const Place place(folder, name);
        if (isNew)
            currentLog->made(place.inode, place.name, inodeAt(descriptor));
        else if ((flags & O_TRUNC) != 0)
            currentLog->truncated(inodeAt(descriptor), 0);
        return descriptor;
    }
    int makeFolderAt(int folder, const char* name, mode_t mode) override
    {
        if (strikes())
            return -1;
        const int done = FileCalls::makeFolderAt(folder, name, mode);
        struct stat made { };
        if (currentLog && done == 0 && ::fstatat(folder, name, &made, 0) == 0)
            currentLog->made(
                Place(folder, name).inode, Place(folder, name).name, {made.st_dev, made.st_ino}, DiskLog::Made::Folder);
        return done;
    }
    ssize_t readAt(int descriptor, void* bytes, std::size_t size, off_t offset) override
    {
        return strikes() ? -1 : FileCalls::readAt(descriptor, bytes, size, offset);
    }
    ssize_t writeAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override
    {
        if (strikes())
            return -1;
        const ssize_t length = FileCalls::writeAt(descriptor, bytes, size, offset);
        if (currentLog && length > 0)
            currentLog->written(inodeAt(descriptor), offset, bytesOf(bytes, static_cast<std::size_t>(length)));
        return length;
    }
    int truncate(int descriptor, off_t size) override
    {
        if (strikes())
            return -1;
        if (currentLog)
            currentLog->truncated(inodeAt(descriptor), size);
        return FileCalls::truncate(descriptor, size);
    }
    int sync(int descriptor) override
    {
        if (strikes())
            return -1;
        noteOpened(); // a journal's folder is synced while the journal is being opened
        if (currentLog)
            currentLog->synced(inodeAt(descriptor));
        return FileCalls::sync(descriptor);
    }
    int renameAt(int from, const char* name, int to, const char* newName, unsigned flags) override
    {
        if (strikes())
            return -1;
        const int done = FileCalls::renameAt(from, name, to, newName, flags);
        const Place source(from, name);
        const Place target(to, newName);
        struct stat renamed { };
        if (currentLog && done == 0 && ::fstatat(to, newName, &renamed, AT_SYMLINK_NOFOLLOW) == 0)
            currentLog->renamed({renamed.st_dev, renamed.st_ino}, source.inode, source.name, target.inode, target.name);
        return done;
    }
    int removeAt(int folder, const char* name, int flags) override
    {
        if (strikes())
            return -1;
        const int done = FileCalls::removeAt(folder, name, flags);
        if (currentLog && done == 0)
            currentLog->removed(Place(folder, name).inode, Place(folder, name).name);
        return done;
    }
};

/// The engine's way to a file; the stock one's own object follows it in memory.
struct EngineFile {
    sqlite3_file base;
    Inode inode;
    bool isWatched; ///< Not one of the engine's own temporary files.
    sqlite3_file* stock;
};

sqlite3_vfs* stockFiles = nullptr;

EngineFile& watched(sqlite3_file* file)
{
    return *reinterpret_cast<EngineFile*>(file);
}

bool isLogged(const EngineFile& file)
{
    return currentLog && file.isWatched;
}

int closeFile(sqlite3_file* file)
{
    sqlite3_file* const stock = watched(file).stock;
    return stock->pMethods ? stock->pMethods->xClose(stock) : SQLITE_OK;
}

int readFile(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset)
{
    sqlite3_file* const stock = watched(file).stock;
    return strikes() ? SQLITE_IOERR_READ : stock->pMethods->xRead(stock, bytes, size, offset);
}

/// A full disk takes a part of what does not fit.
int writeFile(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
{
    sqlite3_file* const stock = watched(file).stock;
    if (strikes()) {
        const bool isFull = errno == ENOSPC;
        if (isFull)
            (void)stock->pMethods->xWrite(stock, bytes, size / 2, offset);
        return isFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    }
    if (isLogged(watched(file)))
        currentLog->written(watched(file).inode, offset, bytesOf(bytes, static_cast<std::size_t>(size)));
    return stock->pMethods->xWrite(stock, bytes, size, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    sqlite3_file* const stock = watched(file).stock;
    if (strikes())
        return SQLITE_IOERR_TRUNCATE;
    if (isLogged(watched(file)))
        currentLog->truncated(watched(file).inode, size);
    return stock->pMethods->xTruncate(stock, size);
}

int syncFile(sqlite3_file* file, int flags)
{
    sqlite3_file* const stock = watched(file).stock;
    if (strikes())
        return SQLITE_IOERR_FSYNC;
    if (isLogged(watched(file)))
        currentLog->synced(watched(file).inode);
    return stock->pMethods->xSync(stock, flags);
}

template <auto Method, typename... Arguments> int stock(sqlite3_file* file, Arguments... arguments)
{
    sqlite3_file* const real = watched(file).stock;
    return (real->pMethods->*Method)(real, arguments...);
}

using Methods = sqlite3_io_methods;
const Methods methods{1, closeFile, readFile, writeFile, truncateFile, syncFile,
    stock<&Methods::xFileSize, sqlite3_int64*>, stock<&Methods::xLock, int>, stock<&Methods::xUnlock, int>,
    stock<&Methods::xCheckReservedLock, int*>, stock<&Methods::xFileControl, int, void*>, stock<&Methods::xSectorSize>,
    stock<&Methods::xDeviceCharacteristics>, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* given)
{
    EngineFile& opened = *new (file) EngineFile{{}, {}, name != nullptr, nullptr};
    opened.stock = reinterpret_cast<sqlite3_file*>(&opened + 1);
    std::memset(opened.stock, 0, static_cast<std::size_t>(stockFiles->szOsFile));
    if (strikes())
        return SQLITE_CANTOPEN;
    beingOpened = name && !exists(AT_FDCWD, name) ? name : nullptr;
    const int code = stockFiles->xOpen(stockFiles, name, opened.stock, flags, given);
    noteOpened();
    if (code != SQLITE_OK)
        return code;
    opened.base.pMethods = &methods;
    struct stat found { };
    if (!name || ::lstat(name, &found) != 0)
        return code;
    opened.inode = {found.st_dev, found.st_ino};
    return code;
}

/// The sync of the folder that may belong to it is the program's, see engine_calls.h.
int deleteFile(sqlite3_vfs*, const char* name, int syncsFolder)
{
    if (strikes())
        return SQLITE_IOERR_DELETE;
    if (currentLog && exists(AT_FDCWD, name))
        currentLog->removed(Place(AT_FDCWD, name).inode, Place(AT_FDCWD, name).name);
    return stockFiles->xDelete(stockFiles, name, syncsFolder);
}

} // namespace

bool DiskFault::strikes()
{
    ++calls;
    if (calls != at && !(isLasting && calls > at))
        return false;
    errno = error;
    return true;
}

void WatchedDisk::install()
{
    static WatchedCalls calls;
    static sqlite3_vfs files = [] {
        sqlite3_initialize();
        stockFiles = sqlite3_vfs_find("unix");
        return *stockFiles;
    }();
    files.zName = "watched";
    files.szOsFile = static_cast<int>(sizeof(EngineFile)) + stockFiles->szOsFile;
    files.xOpen = openFile;
    files.xDelete = deleteFile;
    sqlite3_vfs_register(&files, 1);
    FileCalls::replace(&calls);
}

WatchedDisk::WatchedDisk(DiskLog* log, DiskFault* fault)
{
    currentLog = log;
    currentFault = fault;
}

WatchedDisk::~WatchedDisk()
{
    currentLog = nullptr;
    currentFault = nullptr;
}

} // namespace lorvan::test
