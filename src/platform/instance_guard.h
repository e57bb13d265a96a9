#pragma once

#include <QString>

namespace lorvan {

/// Keeps one program to one running instance on this machine: two copies in two folders are two programs. The mark
/// lives in the kernel, so a killed instance leaves nothing behind.
class InstanceGuard {
public:
    /// `programFile` is the path of the executable; links to it count as the same program.
    explicit InstanceGuard(const QString& programFile);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    /// True when this process is the only instance; asking again is free. Where the system cannot tell, the answer is
    /// true.
    [[nodiscard]] bool isOnlyInstance();

private:
    QString m_programFile;
    int m_socket = -1;
};

} // namespace lorvan
