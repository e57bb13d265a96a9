#pragma once

#include "book/book_files.h"
#include "controls/reading_thread.h"
#include "journal/journal_reading.h"

#include <QObject>

#include <memory>
#include <vector>

namespace lorvan {

class KeyRing;

/// Reads the journal page by page in a thread of its own, on a connection of its own that is open only meanwhile.
class JournalReader : public QObject {
    Q_OBJECT

public:
    /// The keys must outlive the reader.
    JournalReader(BookFiles files, KeyRing& keys);
    ~JournalReader() override { cancel(); }

    /// Begins at the newest row and reads the first page. What was being read is given up.
    void begin(const JournalFilter& filter);
    /// Reads another page; does nothing while one is read, at the end, and after a failure.
    void readOn();
    /// Waits for the thread, which stops almost at once.
    void cancel();

    [[nodiscard]] bool isReading() const { return m_isReading; }
    [[nodiscard]] bool canReadOn() const { return m_canReadOn; }

Q_SIGNALS:
    /// Rows as soon as they are found, newest first. Like all that follows, in the thread of the reader's owner.
    void found(const std::vector<JournalRow>& rows);
    void pageRead(); ///< A page is complete, or the journal's beginning is reached.
    void hasNoJournal();
    void failed(const QString& reason); ///< In plain Greek.

private:
    void start();
    void read();
    void endPage(bool isAtEnd);

    const BookFiles m_files;
    KeyRing& m_keys;
    std::unique_ptr<JournalReading> m_reading; ///< Belongs to the thread while that runs.
    ReadingThread m_thread;
    bool m_isReading = false;
    bool m_canReadOn = false;
};

} // namespace lorvan
