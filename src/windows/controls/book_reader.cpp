#include "controls/book_reader.h"

#include "book/lock_trust.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"

#include <utility>

namespace lorvan {

BookReader::BookReader(BookFiles files, KeyRing& keys, ReadingThread::Failed failed)
    : m_files(std::move(files))
    , m_keys(keys)
    , m_failed(std::move(failed))
{
}

void BookReader::begin(const Read& read)
{
    const auto run = [this, read] {
        Connection main = openBookFile(m_files.mainDatabase(), m_keys);
        Show show;
        readSteadily(main, [&] { show = read(main); });
        m_thread.tell(show);
    };
    m_thread.start(run, m_failed);
}

} // namespace lorvan
