#include "cashbook/cash_closing.h"

#include "cashbook/cash_day.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

namespace lorvan {

bool isClosed(Connection& auxiliary, QDate day)
{
    return auxiliary.prepare("SELECT 1 FROM klhsimotameioy WHERE hmeraklhsimatos=? LIMIT 1").bind(day).step();
}

bool closeDay(Connection& auxiliary, QDate day)
{
    Transaction transaction(auxiliary);
    if (isClosed(auxiliary, day))
        return false;
    auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
    transaction.commit();
    return true;
}

OpenDays openDaysBefore(Connection& main, Connection& auxiliary, QDate day)
{
    auto closed = auxiliary.prepare(
        "SELECT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos<? ORDER BY hmeraklhsimatos");
    auto days = main.prepare("SELECT DISTINCT hmeromhnia FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia");
    bool hasClosed = closed.bind(day).step();
    OpenDays open;
    for (days.bind(day); days.step();) {
        const qint64 cashDay = days.integer(0);
        while (hasClosed && closed.integer(0) < cashDay)
            hasClosed = closed.step();
        const bool isClosed = hasClosed && closed.integer(0) == cashDay;
        if (!isClosed && open.count++ == 0)
            open.since = days.date(0);
    }
    return open;
}

QString closingText(QDate day, const CashDayFigures& figures, const OpenDays& before)
{
    const QString text = QStringLiteral("Ημέρα %1\nΣύνολο εσόδων %2\nΣύνολο εξόδων %3\nΥπόλοιπο ταμείου %4\n\n")
                             .arg(dateText(day), amountOrZeroText(figures.income), amountOrZeroText(figures.expense),
                                 amountOrZeroText(figures.closingBalance));
    if (before.count == 0)
        return text + QStringLiteral("Όλες οι προηγούμενες ημέρες του ταμείου έχουν κλείσει.");
    if (before.count == 1)
        return text + QStringLiteral("Μία προηγούμενη ημέρα δεν έχει κλείσει: η %1.").arg(dateText(before.since));
    return text
        + QStringLiteral("%1 προηγούμενες ημέρες δεν έχουν κλείσει, η πρώτη είναι η %2.")
              .arg(before.count)
              .arg(dateText(before.since));
}

} // namespace lorvan
