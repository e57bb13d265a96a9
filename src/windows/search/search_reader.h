#pragma once

#include "book/book_files.h"
#include "controls/reading_thread.h"
#include "search/code_names.h"
#include "search/movement_search.h"

#include <QObject>

#include <memory>
#include <vector>

namespace lorvan {

class KeyRing;

/// Searches in a thread of its own, on a connection of its own that is open only meanwhile and never writes.
class SearchReader : public QObject {
    Q_OBJECT

public:
    /// The keys must outlive the reader.
    SearchReader(BookFiles files, KeyRing& keys);

    /// Gives up what is being searched, and begins anew.
    void begin(const SearchQuery& query);
    void cancel();

    [[nodiscard]] bool isReading() const { return m_isReading; }

Q_SIGNALS:
    // In the thread of the reader's owner.
    void began(const lorvan::CodeNames& names);
    /// What a slice has found, perhaps nothing, and what has been counted so far. The batch may be moved away.
    void found(const std::shared_ptr<lorvan::SearchBatch>& batch, const std::vector<lorvan::ReadingCounts>& counts);
    void advanced(qint64 done, qint64 whole); ///< Before found(): about so many movements of so many were looked at.
    void ended();
    void failed(const QString& reason); ///< In plain Greek.

private:
    void read(MovementSearch& search);

    const BookFiles m_files;
    KeyRing& m_keys;
    bool m_isReading = false;
    ReadingThread m_thread;
};

} // namespace lorvan
