#pragma once

#include "book/book_files.h"
#include "controls/reading_thread.h"

#include <functional>

namespace lorvan {

class Connection;
class KeyRing;

/// Reads for a window in a thread of its own, on a connection of its own that is open only meanwhile. One
/// reading at a time: a new one gives up the one before it.
class BookReader {
public:
    using Show = std::function<void()>;
    /// Runs in the other thread and must not touch any window; it begins again if the book changes meanwhile. What it
    /// returns is called in the thread of the reader's owner, unless the reading was given up.
    using Read = std::function<Show(Connection& main)>;

    /// The keys must outlive the reader. `failed` gets the reason in plain Greek.
    BookReader(BookFiles files, KeyRing& keys, ReadingThread::Failed failed);

    void begin(const Read& read);
    void cancel() { m_thread.cancel(); }

private:
    const BookFiles m_files;
    KeyRing& m_keys;
    const ReadingThread::Failed m_failed;
    ReadingThread m_thread;
};

} // namespace lorvan
