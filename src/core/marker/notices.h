#pragma once

#include "platform/files/lock_reach.h"

#include <QDateTime>
#include <QString>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace lorvan {

struct MarkerHolder;

/// One message for the line below the tabs; the reason is shown in its tool tip. With empty texts there is no message.
struct Notice {
    QString text;
    QString reason = {};
    bool isWarning = true;
    bool leadsOn = false; ///< A click on the line shows more.
};

/// What may have to be said at the same time, most urgent first: what is wrong in the book, what forbids changes, what
/// endangers them, then the answer to what the user has just done, then what can wait.
enum class NoticeKind {
    BalancesWrong,
    DayCorrected,
    HeldByAnother,
    LocksKeepNobodyOut,
    DiskIsWeak,
    BackupFailed,
    Undo,
    DayClosed,
    OpenDays,
    BackupIsOld
};

/// All current notices, and which of them is shown.
class NoticeBoard {
public:
    /// Replaces the previous notice of that kind.
    void put(NoticeKind kind, Notice notice) { m_notices.insert_or_assign(kind, std::move(notice)); }
    void remove(NoticeKind kind) { m_notices.erase(kind); }

    /// The most urgent notice; its reason lists all of them, each with its own reason. The text is empty if there is no
    /// notice.
    [[nodiscard]] Notice shown() const;
    [[nodiscard]] std::optional<NoticeKind> shownKind() const;
    [[nodiscard]] bool has(NoticeKind kind) const { return m_notices.contains(kind); }
    /// All but the most urgent one, the next one first.
    [[nodiscard]] std::vector<std::pair<NoticeKind, Notice>> others() const;

private:
    std::map<NoticeKind, Notice> m_notices;
};

/// How many notices are behind the shown one: "και 2 ακόμη".
[[nodiscard]] QString othersText(std::size_t count);

/// "Η ημέρα 21-11-2026 έκλεισε", followed by the check code of its seal, if it has one.
[[nodiscard]] Notice dayClosedNotice(QDate day, const QString& checkCode);

/// "Ανοικτές ημέρες: 3 (από 14-11-2026)".
[[nodiscard]] Notice openDaysNotice(int count, QDate since);

/// Who holds the book and since when, provided that is earlier than `now`, and what can be done nevertheless.
[[nodiscard]] Notice heldNotice(const MarkerHolder& holder, const QDateTime& now);

/// Why the book can only be looked at if locks keep nobody out.
[[nodiscard]] Notice readOnlyNotice();

/// What the folder of a book that may be written cannot guarantee; no value if there is nothing to report.
[[nodiscard]] std::optional<Notice> weakDiskNotice(LockReach locks, bool knowsSync);

[[nodiscard]] Notice backupFailedNotice(const QString& reason);

/// "Το τελευταίο αντίγραφο ασφαλείας είναι 12 ημερών (12-11-2026)": no value up to a week after it, or if the day is
/// invalid.
[[nodiscard]] std::optional<Notice> oldBackupNotice(QDate last, QDate today);

} // namespace lorvan
