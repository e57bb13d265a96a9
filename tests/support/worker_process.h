#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

namespace lorvan::test {

/// A running lorvan_test_worker; one that still runs when the object goes is killed.
class WorkerProcess {
public:
    explicit WorkerProcess(const QStringList& arguments)
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QCoreApplication::applicationDirPath() + "/lorvan_test_worker", arguments);
    }
    ~WorkerProcess() { kill(); }
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    /// Waits until the log holds a line; false when the process ends before or takes longer than ten seconds.
    [[nodiscard]] bool waitForLog(const QString& log)
    {
        QElapsedTimer timer;
        timer.start();
        while (QFileInfo(log).size() == 0) {
            if (timer.elapsed() > 10'000 || m_process.waitForFinished(0))
                return false;
            QThread::usleep(200);
        }
        return true;
    }

    /// SIGKILL; returns when the process is gone.
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// The exit code; -1 for a process that crashed or took longer than `seconds`.
    [[nodiscard]] int waitForExit(int seconds)
    {
        const bool ended = m_process.waitForFinished(seconds * 1000);
        return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    [[nodiscard]] QString output() { return QString::fromUtf8(m_process.readAll()); }

private:
    QProcess m_process;
};

} // namespace lorvan::test
