#include "document/report_period.h"

namespace lorvan {

std::vector<NamedPeriod> usualPeriods(QDate today)
{
    const QDate month(today.year(), today.month(), 1);
    const QDate quarter(today.year(), (today.month() - 1) / 3 * 3 + 1, 1);
    const QDate year(today.year(), 1, 1);
    return {
        {QStringLiteral("Σήμερα"), today, today},
        {QStringLiteral("Αυτός ο μήνας έως σήμερα"), month, today},
        {QStringLiteral("Προηγούμενος μήνας"), month.addMonths(-1), month.addDays(-1)},
        {QStringLiteral("Αυτό το τρίμηνο έως σήμερα"), quarter, today},
        {QStringLiteral("Αυτό το έτος έως σήμερα"), year, today},
        {QStringLiteral("Προηγούμενο έτος"), year.addYears(-1), year.addDays(-1)},
    };
}

} // namespace lorvan
