#pragma once

#include "platform/files/file_calls.h"

#include <sqlite3.h>

#include <cstdarg>
#include <fcntl.h>

namespace lorvan::test {

/// Locks that everybody gets, as on a share that does not know them.
class VainLocks : public FileCalls {
public:
    VainLocks() { replace(this); }
    ~VainLocks() override { replace(nullptr); }
    int lock(int, short, off_t, off_t) override { return 0; }
};

/// In place of the engine's fcntl().
inline int lockInVain(int descriptor, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (command == F_GETLK)
        static_cast<struct flock*>(argument)->l_type = F_UNLCK;
    const bool isLock = command == F_GETLK || command == F_SETLK || command == F_SETLKW;
    return isLock ? 0 : ::fcntl(descriptor, command, argument);
}

/// The same for the engine's locks, in this process for good.
inline void makeEngineLocksVain()
{
    sqlite3_initialize();
    sqlite3_vfs* const files = sqlite3_vfs_find("unix");
    files->xSetSystemCall(files, "fcntl", reinterpret_cast<sqlite3_syscall_ptr>(lockInVain));
}

} // namespace lorvan::test
