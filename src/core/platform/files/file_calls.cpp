#include "platform/files/file_calls.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lorvan {
namespace {

FileCalls* replaced = nullptr;

} // namespace

FileCalls& FileCalls::current()
{
    static FileCalls ofTheSystem;
    return replaced ? *replaced : ofTheSystem;
}

void FileCalls::replace(FileCalls* calls)
{
    replaced = calls;
}

int FileCalls::openAt(int folder, const char* name, int flags, mode_t mode)
{
    return ::openat(folder, name, flags, mode);
}

int FileCalls::makeFolderAt(int folder, const char* name, mode_t mode)
{
    return ::mkdirat(folder, name, mode);
}

ssize_t FileCalls::readAt(int descriptor, void* bytes, std::size_t size, off_t offset)
{
    return ::pread(descriptor, bytes, size, offset);
}

ssize_t FileCalls::writeAt(int descriptor, const void* bytes, std::size_t size, off_t offset)
{
    return ::pwrite(descriptor, bytes, size, offset);
}

int FileCalls::truncate(int descriptor, off_t size)
{
    return ::ftruncate(descriptor, size);
}

int FileCalls::sync(int descriptor)
{
    return ::fsync(descriptor);
}

int FileCalls::renameAt(int from, const char* name, int to, const char* newName, unsigned flags)
{
    return ::renameat2(from, name, to, newName, flags);
}

int FileCalls::removeAt(int folder, const char* name, int flags)
{
    return ::unlinkat(folder, name, flags);
}

int FileCalls::lock(int descriptor, short type, off_t start, off_t length)
{
    struct flock range { };
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = start;
    range.l_len = length;
    return ::fcntl(descriptor, F_OFD_SETLK, &range);
}

} // namespace lorvan
