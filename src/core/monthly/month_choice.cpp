#include "monthly/month_choice.h"

#include "platform/date_text.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

QDate lastDayOf(QDate month)
{
    return month.addMonths(1).addDays(-1);
}

} // namespace

std::optional<QDate> readTypedMonth(const QString& text, QDate today)
{
    return readDate(QStringLiteral("1-") + text.trimmed(), today);
}

QString typedMonth(QDate month)
{
    return month.toString(QStringLiteral("MM-yyyy"));
}

std::optional<QDate> lastFullMonth(Connection& main, QDate today)
{
    auto days = main.prepare("SELECT DISTINCT hmeromhnia FROM kinhseis WHERE hmeromhnia<? ORDER BY hmeromhnia DESC");
    days.bind(QDate(today.year(), today.month(), 1));
    while (days.step()) {
        if (const QDate day = dateFromStored(days.integer(0)); day.isValid())
            return QDate(day.year(), day.month(), 1);
    }
    return std::nullopt;
}

std::int64_t movementsInMonth(Connection& main, QDate month)
{
    auto row = main.prepare("SELECT count(*) FROM kinhseis WHERE hmeromhnia BETWEEN ? AND ?");
    row.bind(month, lastDayOf(month));
    return row.step() ? row.integer(0) : 0;
}

QString emptyMonthText(QDate month)
{
    return QStringLiteral("Ο μήνας %1 δεν έχει κινήσεις.").arg(monthText(month));
}

QString packageName(QDate month)
{
    return QStringLiteral("Πακέτο μήνα %1.zip").arg(typedMonth(month));
}

} // namespace lorvan
