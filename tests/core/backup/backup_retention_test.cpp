#include "backup/backup_retention.h"

#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate today(2026, 11, 23);

QString nameOf(QDate day, const char* time = "090000")
{
    return QStringLiteral("lorvan-daily-%1-%2.tar").arg(day.toString(Qt::ISODate), QString::fromUtf8(time));
}

/// One backup on each day that is not a Sunday.
QStringList workingDays(QDate first, QDate last)
{
    QStringList names;
    for (QDate day = first; day <= last; day = day.addDays(1)) {
        if (day.dayOfWeek() != Qt::Sunday)
            names += nameOf(day);
    }
    return names;
}

} // namespace

TEST(BackupRetention, keepsThirtyDaysAndTheLastOfEachEarlierMonth)
{
    const QStringList all = workingDays(QDate(2025, 1, 1), today);
    QStringList kept = all;
    for (const QString& name : outdatedBackups(all, today))
        ASSERT_EQ(kept.removeAll(name), 1);
    EXPECT_EQ(kept.size(), 30 + 22);
    EXPECT_EQ(kept.mid(20, 3),
        (QStringList{nameOf(QDate(2026, 9, 30)), nameOf(QDate(2026, 10, 19)), nameOf(QDate(2026, 10, 20))}));
    EXPECT_EQ(kept.first(), nameOf(QDate(2025, 1, 31)));
    EXPECT_EQ(kept.last(), nameOf(today));
    EXPECT_EQ(outdatedBackups(kept, today), QStringList());
}

TEST(BackupRetention, removesNothingThatItCannotBeSureOf)
{
    const QStringList month = workingDays(QDate(2026, 6, 1), QDate(2026, 6, 30)); // 26 days
    const QString earlier = nameOf(QDate(2026, 5, 4));
    const QStringList strange{QStringLiteral("lorvan-2020-01-01-090000.tar"),
        QStringLiteral("lorvan-2020-01-02-090000.tar"), QStringLiteral("lorvan-daily-2020-01-01-090000.tar.part"),
        QStringLiteral("lorvan-daily-2020-13-01-090000.tar"), QStringLiteral("xlorvan-daily-2020-01-01-090000.tar"),
        QStringLiteral("lorvan-daily-2020-01-01-090000.tar\n"), {}};
    struct {
        const char* what;
        QStringList names;
        QDate on;
        QStringList outdated;
    } const cases[] = {
        {"nothing", {}, today, {}},
        {"an office that was shut for months", month, today, {}},
        {"a clock that has run ahead", month, QDate(2050, 1, 1), {}},
        {"a clock that has stayed behind", month + QStringList{earlier}, QDate(2026, 5, 5), {}},
        {"other files, also of other people", month + strange + workingDays(QDate(2026, 7, 1), QDate(2026, 7, 4)),
            today, {}},
        {"several of one day count once, and go together",
            QStringList{
                nameOf(QDate(2026, 5, 4), "080000"), nameOf(QDate(2026, 5, 4), "090000"), nameOf(QDate(2026, 5, 5))}
                + workingDays(QDate(2026, 6, 1), QDate(2026, 7, 3)) + QStringList{nameOf(QDate(2026, 7, 3), "180000")},
            today, {nameOf(QDate(2026, 5, 4), "080000")}},
    };
    for (const auto& [what, names, on, outdated] : cases)
        EXPECT_EQ(outdatedBackups(names, on), outdated) << what;
}

} // namespace lorvan::test
