#include "platform/date_text.h"

#include <QList>
#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int firstYear = 100;

std::optional<int> readDigits(QStringView text, qsizetype longest)
{
    const bool digitsOnly = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (text.isEmpty() || text.size() > longest || !digitsOnly)
        return std::nullopt;
    return text.toInt();
}

std::optional<int> readYear(QStringView text)
{
    const auto year = readDigits(text, 4);
    if (year && text.size() == 2)
        return *year < 30 ? 2000 + *year : 1900 + *year;
    if (year && text.size() == 4 && *year >= firstYear)
        return year;
    return std::nullopt;
}

} // namespace

std::optional<QDate> readDate(QStringView text, QDate today)
{
    QString normal = text.trimmed().toString();
    for (QChar& c : normal) {
        if (c == u'/' || c == u'.' || c == u',')
            c = u'-';
    }
    const auto parts = QStringView(normal).split(u'-');
    if (parts.size() != 2 && parts.size() != 3)
        return std::nullopt;
    const auto day = readDigits(parts[0], 2);
    const auto month = readDigits(parts[1], 2);
    const auto year = parts.size() == 3 ? readYear(parts[2]) : std::optional(today.year());
    if (!day || !month || !year || !QDate::isValid(*year, *month, *day))
        return std::nullopt;
    return QDate(*year, *month, *day);
}

QString dateText(QDate date)
{
    return date.isValid() ? date.toString(QStringLiteral("dd-MM-yyyy")) : QString();
}

int storedDate(QDate date)
{
    return date.isValid() ? date.year() * 10'000 + date.month() * 100 + date.day() : 0;
}

QDate dateFromStored(qint64 stored)
{
    if (stored < 0 || stored > 9999'99'99)
        return {};
    const int number = static_cast<int>(stored);
    return QDate(number / 10'000, number / 100 % 100, number % 100);
}

QString entryWeekday(QDate date)
{
    static const QStringList fromMonday{QStringLiteral("Δευτέρα"), QStringLiteral("Τρίτη"), QStringLiteral("Τετάρτη"),
        QStringLiteral("Πέμπτη"), QStringLiteral("Παρασκευή"), QStringLiteral("Σαββάτο"), QStringLiteral("Κυριακή")};
    return fromMonday.value(date.dayOfWeek() - 1);
}

QString monthText(QDate day)
{
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    return greek.standaloneMonthName(day.month()) + u' ' + QString::number(day.year());
}

QString shortMonthName(QDate day)
{
    static const QStringList names{QStringLiteral("Ιαν"), QStringLiteral("Φεβ"), QStringLiteral("Μαρ"),
        QStringLiteral("Απρ"), QStringLiteral("Μαι"), QStringLiteral("Ιουν"), QStringLiteral("Ιουλ"),
        QStringLiteral("Αυγ"), QStringLiteral("Σεπ"), QStringLiteral("Οκτ"), QStringLiteral("Νοε"),
        QStringLiteral("Δεκ")};
    return names.value(day.month() - 1);
}

} // namespace lorvan
