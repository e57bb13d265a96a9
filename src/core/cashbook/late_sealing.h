#pragma once

#include "book/book_files.h"
#include "platform/clock.h"
#include "platform/machine_identity.h"

#include <QObject>

#include <atomic>
#include <chrono>
#include <thread>

namespace lorvan {

class KeyRing;

/// Seals days that were closed without a seal, by an earlier release or another program, while the user works: in a
/// thread of its own, on a connection of its own that exists only while this program holds the usage marker. Between
/// two transactions it leaves the files alone, so that whoever waits for their locks gets them.
class LateSealing : public QObject {
    Q_OBJECT

public:
    struct Pace {
        int days = 100; ///< In one transaction.
        std::chrono::milliseconds pause{300}; ///< After each.
    };

    /// `keys` must outlive the object.
    LateSealing(BookFiles book, KeyRing& keys, Clock clock, Pace pace);
    LateSealing(BookFiles book, KeyRing& keys, Clock clock);
    ~LateSealing() override;

    /// `holder` is this program, as it stands in the usage marker; before each transaction the marker must say so
    /// still. Does nothing while sealing is under way. Never waits.
    void start(const MachineIdentity& holder);
    /// To be called before the marker is given up: returns when nothing is written any more, which may take as long as
    /// one transaction. What has not been sealed is left for another time, as it is after a failure.
    void stop();
    /// The same; nothing is begun any more.
    void retire();

Q_SIGNALS:
    void ended(int days); ///< So many were sealed; not after stop().

private:
    [[nodiscard]] int sealAll();
    [[nodiscard]] bool holdsMarker() const;
    void end(int days);

    const BookFiles m_book;
    KeyRing& m_keys;
    const Clock m_clock;
    const Pace m_pace;
    MachineIdentity m_holder;
    bool m_isRetired = false;
    int m_round = 0; ///< What an earlier thread reports is not wanted any more.
    std::atomic<bool> m_isStopped = false;
    std::thread m_thread;
};

} // namespace lorvan
