#include "controls/reading_thread.h"

#include "book/failure_text.h"
#include "platform/stop_check.h"

namespace lorvan {

void ReadingThread::start(const Step& read, const Failed& failed)
{
    cancel();
    m_isCancelled = false;
    ++m_number;
    m_thread = std::thread([this, read, failed] {
        try {
            const StopCheck check([this] { return !m_isCancelled; });
            read();
        } catch (const std::exception& failure) {
            tell([failed, reason = failureText(failure)] { failed(reason); });
        }
    });
}

void ReadingThread::tell(const Step& what)
{
    const auto ifStillWanted = [this, number = m_number, what] {
        if (number == m_number && !m_isCancelled)
            what();
    };
    QMetaObject::invokeMethod(this, ifStillWanted, Qt::QueuedConnection);
}

void ReadingThread::cancel()
{
    m_isCancelled = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace lorvan
