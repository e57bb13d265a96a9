#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace lorvan {

/// Makes sure that only one instance of a program runs on this computer; two copies in two folders are two programs.
/// The mark is held by the kernel, so a killed instance leaves nothing behind.
class InstanceGuard {
public:
    /// `programFile` is the path of the executable; links to it count as the same program.
    explicit InstanceGuard(const QString& programFile);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    /// True if this process is the only instance; further calls cost nothing. True also if the system cannot tell.
    [[nodiscard]] bool isOnlyInstance();

    /// True if another process is the only instance. Does not become one, so it may be asked at any time.
    [[nodiscard]] bool runsElsewhere() const;

    /// Asks the running instance to show its window and passes on the permission to do so that the desktop gave to this
    /// start (`activationToken`, may be empty). Does not wait: an instance that hangs, or that belongs to another user,
    /// does not receive it.
    void callOther(const QByteArray& activationToken) const;

    /// For the only instance: runs `answer` in the event loop whenever this user starts the program again.
    void whenCalled(std::function<void(const QByteArray& activationToken)> answer);

private:
    void receive() const;

    QString m_programFile;
    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_calls;
    std::function<void(const QByteArray&)> m_answer;
};

} // namespace lorvan
