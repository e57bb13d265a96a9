#include "journal/journal_reader.h"

#include "book/failure_text.h"
#include "book/lock_trust.h"
#include "platform/stop_check.h"

#include <utility>

namespace lorvan {
namespace {

constexpr std::size_t rowsOfPage = 200;

} // namespace

JournalReader::JournalReader(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
{
}

void JournalReader::begin(const JournalFilter& filter)
{
    cancel();
    m_reading = std::make_unique<JournalReading>(filter);
    start();
}

void JournalReader::readOn()
{
    if (!m_canReadOn)
        return;
    cancel();
    start();
}

void JournalReader::start()
{
    m_isCancelled = false;
    m_isReading = true;
    m_canReadOn = false;
    m_thread = std::thread([this, number = ++m_number] {
        try {
            read(number);
        } catch (const std::exception& failure) {
            tell(number, [this, reason = failureText(failure)] {
                m_isReading = false;
                Q_EMIT failed(reason);
            });
        }
    });
}

/// In the thread.
void JournalReader::read(unsigned number)
{
    const StopCheck check([this] { return !m_isCancelled; });
    Connection main = openBookFile(m_files.mainDatabase(), m_keys);
    if (!keepsJournal(main))
        tell(number, [this] { Q_EMIT hasNoJournal(); });
    std::size_t left = rowsOfPage;
    while (left > 0 && !m_reading->isAtEnd() && !m_isCancelled) {
        auto rows = m_reading->readOn(main, left);
        left -= rows.size();
        if (!rows.empty())
            tell(number, [this, rows = std::move(rows)] { Q_EMIT found(rows); });
    }
    tell(number, [this, isAtEnd = m_reading->isAtEnd()] { endPage(isAtEnd); });
}

void JournalReader::tell(unsigned number, std::function<void()> what)
{
    const auto ifStillWanted = [this, number, what = std::move(what)] {
        if (number == m_number && !m_isCancelled)
            what();
    };
    QMetaObject::invokeMethod(this, ifStillWanted, Qt::QueuedConnection);
}

void JournalReader::endPage(bool isAtEnd)
{
    m_isReading = false;
    m_canReadOn = !isAtEnd;
    Q_EMIT pageRead();
}

void JournalReader::cancel()
{
    m_isCancelled = true;
    if (m_thread.joinable())
        m_thread.join();
    m_isReading = false;
    m_canReadOn = false;
}

} // namespace lorvan
