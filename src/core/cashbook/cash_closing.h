#pragma once

#include <QDate>
#include <QString>

namespace lorvan {

class Connection;
struct CashDayFigures;

/// True if the day's cash has been closed for good.
[[nodiscard]] bool isClosed(Connection& auxiliary, QDate day);

/// Closes the day's cash; does nothing if it is already closed. One transaction. Returns true if the day was open.
bool closeDay(Connection& auxiliary, QDate day);

/// Cash days that are not closed; `since` is the first of them, invalid if there are none.
struct OpenDays {
    int count = 0;
    QDate since;

    friend bool operator==(const OpenDays&, const OpenDays&) = default;
};

/// The open days before `day`. Each day is read once, through the indexes. Throws SqlError.
[[nodiscard]] OpenDays openDaysBefore(Connection& main, Connection& auxiliary, QDate day);

/// What the user should know before closing the day: its figures, and which earlier days were not closed.
[[nodiscard]] QString closingText(QDate day, const CashDayFigures& figures, const OpenDays& before);

} // namespace lorvan
