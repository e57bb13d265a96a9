#include "support/worker_process.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <csignal>

namespace lorvan::test {

WorkerProcess::WorkerProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/lorvan_test_worker"), arguments);
}

WorkerProcess::~WorkerProcess()
{
    kill();
}

bool WorkerProcess::waitForLog(const QString& log)
{
    constexpr qint64 patience = 10'000;
    QElapsedTimer timer;
    timer.start();
    while (QFileInfo(log).size() == 0) {
        if (timer.elapsed() > patience || m_process.waitForFinished(0))
            return false;
        QThread::usleep(200);
    }
    return true;
}

void WorkerProcess::send(int signal)
{
    ::kill(static_cast<pid_t>(m_process.processId()), signal);
}

void WorkerProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

int WorkerProcess::waitForExit(int seconds)
{
    const bool ended = m_process.waitForFinished(seconds * 1000);
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString WorkerProcess::output()
{
    return QString::fromUtf8(m_process.readAll());
}

} // namespace lorvan::test
