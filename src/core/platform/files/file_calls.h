#pragma once

#include <cstddef>

#include <sys/types.h>

namespace lorvan {

/// The system calls with which the program reads and changes its own files; the database files are handled by the
/// engine. Each behaves as the system call does, errno included. Tests replace them with versions that record, fail or
/// lose writes.
class FileCalls {
public:
    FileCalls() = default;
    virtual ~FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;

    virtual int openAt(int folder, const char* name, int flags, mode_t mode);
    virtual int makeFolderAt(int folder, const char* name, mode_t mode);
    virtual ssize_t readAt(int descriptor, void* bytes, std::size_t size, off_t offset);
    virtual ssize_t writeAt(int descriptor, const void* bytes, std::size_t size, off_t offset);
    virtual int truncate(int descriptor, off_t size);
    virtual int sync(int descriptor); ///< Of a file or a folder.
    virtual int renameAt(int from, const char* name, int to, const char* newName, unsigned flags); ///< renameat2()
    virtual int removeAt(int folder, const char* name, int flags); ///< unlinkat()
    /// F_OFD_SETLK: `type` is F_WRLCK or F_UNLCK; a length of 0 reaches to the end of the file.
    virtual int lock(int descriptor, short type, off_t start, off_t length);

    [[nodiscard]] static FileCalls& current();
    /// Null restores the system's own calls. Not to be called while another thread works on files.
    static void replace(FileCalls* calls);
};

} // namespace lorvan
