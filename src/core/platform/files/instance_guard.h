#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class QSocketNotifier;

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

    /// Asks the running instance to show itself, and hands it the permission to do so that the desktop gave this start
    /// (`activationToken`, may be empty). Waits for nothing: one that hangs, or is another user's, hears nothing.
    void callOther(const QByteArray& activationToken) const;

    /// Of the only instance: runs `answer` in the event loop whenever this user starts the program once more.
    void whenCalled(std::function<void(const QByteArray& activationToken)> answer);

private:
    void receive() const;

    QString m_programFile;
    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_calls;
    std::function<void(const QByteArray&)> m_answer;
};

} // namespace lorvan
