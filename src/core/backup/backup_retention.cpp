#include "backup/backup_retention.h"

#include <QRegularExpression>

#include <set>
#include <utility>

namespace lorvan {
namespace {

constexpr std::size_t daysKept = 30;

} // namespace

QDate dayOfDailyBackup(const QString& fileName)
{
    static const QRegularExpression form(QStringLiteral("\\Alorvan-daily-(\\d{4}-\\d\\d-\\d\\d)-\\d{6}\\.tar\\z"));
    return QDate::fromString(form.match(fileName).captured(1), Qt::ISODate);
}

QDate lastBackupDay(const QStringList& fileNames, QDate today)
{
    static const QRegularExpression form(QStringLiteral("\\Alorvan-(?:daily-)?(\\d{4}-\\d\\d-\\d\\d)-\\d{6}\\.tar\\z"));
    QDate last;
    for (const QString& name : fileNames) {
        const QDate day = QDate::fromString(form.match(name).captured(1), Qt::ISODate);
        if (day.isValid() && day <= today && (!last.isValid() || day > last))
            last = day;
    }
    return last;
}

QStringList outdatedBackups(const QStringList& fileNames, QDate today)
{
    QStringList past;
    for (const QString& name : fileNames) {
        const QDate day = dayOfDailyBackup(name);
        if (day.isValid() && day <= today)
            past += name;
    }
    past.sort(); // by day, as the names are made
    QStringList outdated;
    std::set<QDate> days;
    std::set<std::pair<int, int>> months;
    for (auto name = past.crbegin(); name != past.crend(); ++name) {
        const QDate day = dayOfDailyBackup(*name);
        if (days.size() < daysKept || days.contains(day))
            days.insert(day);
        else if (!months.insert({day.year(), day.month()}).second)
            outdated += *name;
    }
    return outdated;
}

} // namespace lorvan
