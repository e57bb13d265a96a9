#include "search/search_reader.h"

#include "book/lock_trust.h"

namespace lorvan {

SearchReader::SearchReader(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
{
}

void SearchReader::begin(const SearchQuery& query)
{
    m_isReading = true;
    m_thread.start([this, search = std::make_shared<MovementSearch>(query)] { read(*search); },
        [this](const QString& reason) {
            m_isReading = false;
            Q_EMIT failed(reason);
        });
}

void SearchReader::cancel()
{
    m_thread.cancel();
    m_isReading = false;
}

/// In the thread.
void SearchReader::read(MovementSearch& search)
{
    Connection main = openBookFile(m_files.mainDatabase(), m_keys);
    m_thread.tell([this, names = codeNames(main)] { Q_EMIT began(names); });
    while (!search.isAtEnd() && !m_thread.isCancelled()) {
        auto batch = std::make_shared<SearchBatch>(search.readOn(main));
        m_thread.tell([this, batch, counts = search.counts(), done = search.done(), whole = search.whole()] {
            Q_EMIT advanced(done, whole);
            Q_EMIT found(batch, counts);
        });
    }
    m_thread.tell([this] {
        m_isReading = false;
        Q_EMIT ended();
    });
}

} // namespace lorvan
