#pragma once

#include <QDate>
#include <QString>

namespace lorvan {

class Connection;
struct CashDayFigures;

/// True when the day's cash is closed for good.
[[nodiscard]] bool isClosed(Connection& auxiliary, QDate day);

/// Closes the day's cash; a day that is closed already stays as it is. One transaction. True when the day was open.
bool closeDay(Connection& auxiliary, QDate day);

/// Cash days that are not closed; `since` is the first of them, invalid when there is none.
struct OpenDays {
    int count = 0;
    QDate since;

    friend bool operator==(const OpenDays&, const OpenDays&) = default;
};

/// Those before `day`. The days are read once, by their indexes. Throws SqlError.
[[nodiscard]] OpenDays openDaysBefore(Connection& main, Connection& auxiliary, QDate day);

/// What somebody should know before closing the day: its figures, and which days before it were forgotten.
[[nodiscard]] QString closingText(QDate day, const CashDayFigures& figures, const OpenDays& before);

} // namespace lorvan
