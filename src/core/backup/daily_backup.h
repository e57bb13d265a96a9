#pragma once

#include "book/book_files.h"
#include "platform/clock.h"

#include <QObject>

#include <atomic>
#include <optional>
#include <string>
#include <thread>

namespace lorvan {

class KeyRing;

/// Makes the backup of the day, if there is none yet, and removes those that have had their time (see
/// backup_retention.h), as well as what killed restores left. Returns its path if it was made. Throws like
/// makeBackup().
std::optional<QString> makeDailyBackup(const BookFiles& book, KeyRing& keys, const QDateTime& now);

/// The program's own backups: one on each day on which this computer changes the data. They run on a thread of their
/// own, a moment after they are asked for, and are given up when the program ends.
class DailyBackup : public QObject {
    Q_OBJECT

public:
    /// `keys` must outlive the object.
    DailyBackup(const BookFiles& book, KeyRing& keys, Clock clock);
    ~DailyBackup() override;

    /// To be called whenever this computer holds the usage marker. Costs nothing where the day's backup is made or
    /// under way; one that has failed is tried again after a quarter of an hour.
    void markerHeld();

    /// Gives up what is under way; nothing is begun any more.
    void retire();

Q_SIGNALS:
    void made();
    void failed(const QString& reason); ///< What failureText() says.

private:
    void start();
    void run(const QDateTime& now);
    void end(bool isMade, const QString& reason);

    BookFiles m_book;
    KeyRing& m_keys;
    Clock m_clock;
    QDate m_doneOn;
    QDateTime m_nextAttempt;
    bool m_isUnderWay = false;
    std::atomic<bool> m_retired = false;
    std::thread m_thread;
};

} // namespace lorvan
