#include "figures/figure_reader.h"

#include "book/failure_text.h"
#include "book/lock_trust.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/stop_check.h"

#include <utility>

namespace lorvan {

FigureReader::FigureReader(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
{
}

void FigureReader::begin(Read read)
{
    cancel();
    m_isCancelled = false;
    m_thread = std::thread([this, number = ++m_number, read = std::move(read)] {
        try {
            run(number, read);
        } catch (const std::exception& failure) {
            tell(number, [this, reason = failureText(failure)] { Q_EMIT failed(reason); });
        }
    });
}

/// In the thread.
void FigureReader::run(unsigned number, const Read& read)
{
    const StopCheck check([this] { return !m_isCancelled; });
    Connection main = openBookFile(m_files.mainDatabase(), m_keys);
    Show show;
    readSteadily(main, [&] { show = read(main); });
    tell(number, show);
}

void FigureReader::tell(unsigned number, const Show& what)
{
    const auto ifStillWanted = [this, number, what] {
        if (number == m_number && !m_isCancelled)
            what();
    };
    QMetaObject::invokeMethod(this, ifStillWanted, Qt::QueuedConnection);
}

void FigureReader::cancel()
{
    m_isCancelled = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace lorvan
