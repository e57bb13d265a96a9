#pragma once

#include "platform/files/lock_reach.h"

#include <QDateTime>
#include <QString>

#include <map>
#include <optional>

namespace lorvan {

struct MarkerHolder;

/// One thing that the line below the tabs has to say; the reason stands in its tool tip. Empty texts say nothing.
struct Notice {
    QString text;
    QString reason = {};
    bool isWarning = true;
};

/// What there may be to say at the same time, the most urgent first: the answer to what the user has just done, then
/// what forbids changes, then what endangers them, then what can wait.
enum class NoticeKind { DayClosed, LocksKeepNobodyOut, HeldByAnother, DiskIsWeak, BackupFailed };

/// Everything that is to be said, and what of it is.
class NoticeBoard {
public:
    /// In place of what was said of that kind.
    void put(NoticeKind kind, Notice notice) { m_notices.insert_or_assign(kind, std::move(notice)); }
    void remove(NoticeKind kind) { m_notices.erase(kind); }

    /// The most urgent one, which also tells how many others there are; its reason names them all, each with its own.
    /// Without text when there is none.
    [[nodiscard]] Notice shown() const;

private:
    std::map<NoticeKind, Notice> m_notices;
};

/// "Η ημέρα 21-11-2026 έκλεισε".
[[nodiscard]] Notice dayClosedNotice(QDate day);

/// Who holds the book and since when, as far as that lies before `now`, and what can be done all the same.
[[nodiscard]] Notice heldNotice(const MarkerHolder& holder, const QDateTime& now);

/// Why the book is only looked at where locks keep nobody out.
[[nodiscard]] Notice readOnlyNotice();

/// What the book's folder cannot promise, where it holds a book that may be written; nothing where all is well.
[[nodiscard]] std::optional<Notice> weakDiskNotice(LockReach locks, bool knowsSync);

[[nodiscard]] Notice backupFailedNotice(const QString& reason);

} // namespace lorvan
