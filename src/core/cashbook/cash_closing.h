#pragma once

#include <QDate>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace lorvan {

class Authority;
class Connection;
struct CashDayFigures;

/// True if the day's cash has been closed for good.
[[nodiscard]] bool isClosed(Connection& auxiliary, QDate day);

/// A day that was open until now.
struct ClosedDay {
    QDate day;
    QString checkCode = {}; ///< Of its seal; empty if it could not be sealed yet, or was sealed before.
};

/// Closes the day's cash and seals it, unless it was sealed before and then opened around the program. One transaction
/// over `book`, which holds both databases or, if the main one cannot be written, only the auxiliary one. Does nothing
/// and returns no value if the day is already closed. Throws NotPermitted and SqlError.
std::optional<ClosedDay> closeDay(Connection& book, const Authority& authority, QDate day);

/// Closes every open day between the earliest and the latest closed day; does nothing if there is at most one closed
/// day. One transaction over `book`, which holds both databases or only the auxiliary one (see openUnguarded()), with
/// one row in the journal, and one for each day that was sealed before and then opened around the program. `goOn` is
/// called now and then, so that a window stays responsive over a range of centuries; if it returns false, nothing is
/// closed. Throws NotPermitted and SqlError.
void closeOpenDays(Connection& book, const Authority& authority, const std::function<bool()>& goOn);

/// Closes every open day between the earliest and the latest closed day; does nothing if there is at most one closed
/// day. One transaction over `book`, as in closeDay(), with one row in the journal, and one for each day that was
/// sealed before and then opened around the program. `goOn` is called now and then, so that a window stays responsive
/// over a range of centuries; if it returns false, nothing is closed. Throws NotPermitted and SqlError.
void closeOpenDays(Connection& book, const Authority& authority, const std::function<bool()>& goOn);

/// A row of `klhsimotameioy`.
struct Closing {
    qint64 key = 0;
    QDate day;
};

/// The closings after the last one that the journal knows, in the order in which they were made. `main` has the
/// journal; it may be the same connection.
[[nodiscard]] std::vector<Closing> unrecordedClosings(Connection& main, Connection& auxiliary);
/// Records them as found, inside the caller's transaction.
void recordFound(Connection& main, const Authority& authority, const std::vector<Closing>& closings);

/// Cash days that are not closed; `since` is the first of them, invalid if there are none.
struct OpenDays {
    int count = 0;
    QDate since;

    friend bool operator==(const OpenDays&, const OpenDays&) = default;
};

/// The open days before `day`. Each day is read once, through the indexes. Throws SqlError.
[[nodiscard]] OpenDays openDaysBefore(Connection& main, Connection& auxiliary, QDate day);

/// The same days themselves, the first one first.
[[nodiscard]] std::vector<QDate> listOpenDaysBefore(Connection& main, Connection& auxiliary, QDate day);

/// The open days before today that the user should be reminded of: those of openDaysBefore() in a book in which one of
/// the last 60 days before today was closed; none where days are not closed any more. Throws SqlError.
[[nodiscard]] OpenDays forgottenDays(Connection& main, Connection& auxiliary, QDate today);

/// What the user should know before closing the day: its figures, and which earlier days were not closed.
[[nodiscard]] QString closingText(QDate day, const CashDayFigures& figures, const OpenDays& before);

} // namespace lorvan
