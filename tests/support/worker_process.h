#pragma once

#include <QProcess>
#include <QStringList>

namespace lorvan::test {

/// A running lorvan_test_worker; one that still runs when the object goes is killed.
class WorkerProcess {
public:
    explicit WorkerProcess(const QStringList& arguments);
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    /// Waits until the log holds a line; false when the process ends before or takes longer than ten seconds.
    [[nodiscard]] bool waitForLog(const QString& log);

    void send(int signal);

    /// SIGKILL; returns when the process is gone.
    void kill();

    /// The exit code; -1 for a process that crashed or took longer than `seconds`.
    [[nodiscard]] int waitForExit(int seconds);

    [[nodiscard]] QString output();

private:
    QProcess m_process;
};

} // namespace lorvan::test
