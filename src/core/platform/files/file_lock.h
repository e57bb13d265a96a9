#pragma once

#include "platform/files/folder.h"

#include <chrono>
#include <stdexcept>

namespace lorvan {

/// Somebody else holds the lock, or the system refuses one. what() names the file and the reason.
class LockRefused : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that is open and locked against everyone else, also within the process, for as long as the object lives. The
/// lock goes with a process that is killed.
class FileLock {
public:
    enum class Missing { Make, Refuse };

    /// Waits for the lock up to `patience`. `access` is for a file that is made. Throws LockRefused, also when the name
    /// has come to mean another file or none by the time the lock is had.
    explicit FileLock(const Folder& folder, const QString& name, Missing missing = Missing::Make,
        std::chrono::milliseconds patience = {}, FileAccess access = FileAccess::Owner);

    [[nodiscard]] File& file() { return m_file; }

private:
    File m_file;
};

} // namespace lorvan
