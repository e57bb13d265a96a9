#pragma once

#include <QString>

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

    /// Waits for the lock up to `patience`. Throws LockRefused, also when the name has come to mean another file or
    /// none by the time the lock is had.
    explicit FileLock(const QString& path, Missing missing = Missing::Make, std::chrono::milliseconds patience = {});
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    void lock(const QString& path, std::chrono::milliseconds patience) const;

    int m_descriptor;
};

} // namespace lorvan
