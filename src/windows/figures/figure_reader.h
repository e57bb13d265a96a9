#pragma once

#include "book/book_files.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace lorvan {

class Connection;
class KeyRing;

/// Reads figures in a thread of its own, on a connection of its own that is open only meanwhile. One reading at a time:
/// a new one gives up the one before it.
class FigureReader : public QObject {
    Q_OBJECT

public:
    using Show = std::function<void()>;
    /// Runs in the other thread and must not touch any window; it begins again if the book changes meanwhile. What it
    /// returns is called in the thread of the reader's owner, unless the reading was given up.
    using Read = std::function<Show(Connection& main)>;

    /// The keys must outlive the reader.
    FigureReader(BookFiles files, KeyRing& keys);
    ~FigureReader() override { cancel(); }

    void begin(Read read);
    /// Waits for the thread, which stops almost at once.
    void cancel();

Q_SIGNALS:
    void failed(const QString& reason); ///< In plain Greek.

private:
    void run(unsigned number, const Read& read);
    void tell(unsigned number, const Show& what);

    const BookFiles m_files;
    KeyRing& m_keys;
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    unsigned m_number = 0; ///< Of the reading; what earlier ones tell is ignored.
};

} // namespace lorvan
