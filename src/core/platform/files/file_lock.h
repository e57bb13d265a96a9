#pragma once

#include "platform/files/folder.h"

#include <chrono>
#include <stdexcept>

namespace lorvan {

/// Somebody else holds the lock, or the system refuses it. what() names the file and the reason.
class LockRefused : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that is open and locked against everyone else, also within the process, for the lifetime of the object. If
/// the process is killed, the lock is released.
class FileLock {
public:
    enum class Missing { Make, Refuse };

    /// Waits up to `patience` for the lock. `access` applies if the file has to be made. Throws LockRefused, also if by
    /// the time the lock is obtained the name belongs to another file or to none.
    explicit FileLock(const Folder& folder, const QString& name, Missing missing = Missing::Make,
        std::chrono::milliseconds patience = {}, FileAccess access = FileAccess::Owner);

    [[nodiscard]] File& file() { return m_file; }

private:
    File m_file;
};

} // namespace lorvan
