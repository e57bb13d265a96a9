#include "journal/journal_reader.h"

#include "book/lock_trust.h"

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
    m_isReading = true;
    m_canReadOn = false;
    m_thread.start([this] { read(); },
        [this](const QString& reason) {
            m_isReading = false;
            Q_EMIT failed(reason);
        });
}

/// In the thread.
void JournalReader::read()
{
    Connection main = openBookFile(m_files.mainDatabase(), m_keys);
    if (!keepsJournal(main))
        m_thread.tell([this] { Q_EMIT hasNoJournal(); });
    std::size_t left = rowsOfPage;
    while (left > 0 && !m_reading->isAtEnd() && !m_thread.isCancelled()) {
        auto rows = m_reading->readOn(main, left);
        left -= rows.size();
        if (!rows.empty())
            m_thread.tell([this, rows = std::move(rows)] { Q_EMIT found(rows); });
    }
    m_thread.tell([this, isAtEnd = m_reading->isAtEnd()] { endPage(isAtEnd); });
}

void JournalReader::endPage(bool isAtEnd)
{
    m_isReading = false;
    m_canReadOn = !isAtEnd;
    Q_EMIT pageRead();
}

void JournalReader::cancel()
{
    m_thread.cancel();
    m_isReading = false;
    m_canReadOn = false;
}

} // namespace lorvan
