#include "cashbook/weekday.h"

#include <QStringList>

namespace lorvan {

QString entryWeekday(QDate date)
{
    static const QStringList fromMonday{QStringLiteral("Δευτέρα"), QStringLiteral("Τρίτη"), QStringLiteral("Τετάρτη"),
        QStringLiteral("Πέμπτη"), QStringLiteral("Παρασκευή"), QStringLiteral("Σαββάτο"), QStringLiteral("Κυριακή")};
    return fromMonday.value(date.dayOfWeek() - 1);
}

} // namespace lorvan
