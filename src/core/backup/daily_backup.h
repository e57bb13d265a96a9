#pragma once

#include "backup/second_place.h"
#include "book/book_files.h"
#include "platform/clock.h"

#include <QObject>

#include <atomic>
#include <optional>
#include <string>
#include <thread>

namespace lorvan {

class KeyRing;

/// Makes the day's backup, if there is none yet, deletes outdated ones (see outdatedBackups()) and what killed restores
/// have left. If a second place for copies is given and there, the day's backup is copied into it, also
/// one that was made before, and the same ones are deleted there. Returns the path of the backup if it was made. Throws
/// like makeBackup() and copyBackup(), and SettingsError.
std::optional<QString> makeDailyBackup(
    const BookFiles& book, KeyRing& keys, const QDateTime& now, const SecondPlace* second = nullptr);

/// The day of the newest backup in the book's backup folder, see lastBackupDay(). Only looks.
[[nodiscard]] QDate lastBackupOf(const BookFiles& book, QDate today);

/// Makes a backup on each day on which this computer changes the data, in a thread of its own. It begins a moment after
/// markerHeld(), and is cancelled when the program ends.
class DailyBackup : public QObject {
    Q_OBJECT

public:
    /// `keys` must outlive the object.
    DailyBackup(const BookFiles& book, KeyRing& keys, Clock clock);
    ~DailyBackup() override;

    /// To be called whenever this computer holds the usage marker. It does nothing if the day's backup exists or is
    /// being made. A backup that has failed is tried again after a quarter of an hour.
    void markerHeld();

    /// Cancels the backup that is being made, and begins no other.
    void retire();

Q_SIGNALS:
    void made();
    void failed(const QString& reason); ///< The reason is a failureText().

private:
    void start();
    void run(const QDateTime& now);
    void end(bool isMade, const QString& reason);

    BookFiles m_book;
    KeyRing& m_keys;
    SecondPlace m_second;
    Clock m_clock;
    QDate m_doneOn;
    QDateTime m_nextAttempt;
    bool m_isUnderWay = false;
    std::atomic<bool> m_retired = false;
    std::thread m_thread;
};

} // namespace lorvan
