#pragma once

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace lorvan {

/// Reads in a thread of its own for the window that owns it. What the thread tells arrives in the owner's thread; what
/// was told by a reading that has been given up does not arrive.
class ReadingThread : public QObject {
public:
    ~ReadingThread() override { cancel(); }

    using Step = std::function<void()>;
    using Failed = std::function<void(const QString& reason)>; ///< In plain Greek.

    /// Gives up what is being read, and runs `read` in the thread. While it runs, a StopCheck says no once the reading
    /// has been given up.
    void start(const Step& read, const Failed& failed);
    /// Called in the thread: has the owner do something, if the reading is still wanted by then.
    void tell(const Step& what);
    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }

    /// Waits for the thread, which stops almost at once.
    void cancel();

private:
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    unsigned m_number = 0; ///< Of the reading.
};

} // namespace lorvan
