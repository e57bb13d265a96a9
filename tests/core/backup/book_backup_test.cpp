#include "backup/book_backup.h"

#include "backup/backup_retention.h"
#include "backup/book_archive.h"
#include "backup/copy_writing.h"
#include "backup/daily_backup.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

namespace lorvan::test {
namespace {

/// One value of what a backup holds, after the word on the integrity of both databases.
QString valueIn(const QString& backup, std::string_view sql)
{
    const QTemporaryDir folder;
    unpackBook(backup, Folder(folder.path()));
    Connection book = openBoth(folder.path());
    return valueOf(book, "PRAGMA integrity_check") + u' ' + valueOf(book, sql);
}

const QDate today(2026, 11, 23);

QString nameOf(QDate day, const char* time = "090000")
{
    return QStringLiteral("lorvan-daily-%1-%2.tar").arg(day.toString(Qt::ISODate), time);
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

TEST(BookBackup, isOfOneMomentWhileAnotherProgramWrites)
{
    const TemporaryBook book;
    const QString log = book.path("log");
    WorkerProcess writer({"pairs", book.folder(), log, "1000"});
    ASSERT_TRUE(writer.waitForLog(log)) << writer.output().toStdString();
    std::size_t whileWriting = 0;
    for (int i = 0; WorkerLog::read(log).size() < 2 && i < 200; ++i) {
        const QString path = book.path(QStringLiteral("%1.tar").arg(i));
        makeBackup(book.files(), path, testKeys());
        whileWriting += WorkerLog::read(log).size() < 2;
        const QString found = valueIn(path,
            "SELECT count(*) || ' ' || (SELECT ifnull(sum(ypoloipo), 0) FROM tameio)"
            " || ' ' || (SELECT count(*) FROM other.klhsimotameioy) FROM kinhseis");
        ASSERT_EQ(found, QStringLiteral("ok %1 %1 %1").arg(found.section(u' ', -1)));
    }
    EXPECT_EQ(writer.waitForExit(60), 0) << writer.output().toStdString();
    EXPECT_GE(whileWriting, 2U) << "no backup has met the writer";
}

TEST(BookBackup, givesLocksBackAndHoldsThemOnlyAtLast)
{
    const TemporaryBook book;
    QDir().mkdir(book.path("copy"));
    CopyPatience patience;
    patience.locked = std::chrono::milliseconds(0);
    patience.between = std::chrono::milliseconds(50);
    patience.attempts = 3;
    EXPECT_EQ(copyBook(book.files(), BookFiles(book.path("copy")), testKeys(), patience).attempts, 3);

    Connection other = book.openMain();
    std::optional<Transaction> busy;
    const StopCheck beginWriting([&] {
        if (!busy)
            busy.emplace(other, Transaction::View::Alone);
        return true;
    });
    QDir().mkdir(book.path("second"));
    patience.all = std::chrono::seconds(0);
    EXPECT_THROW(copyBook(book.files(), BookFiles(book.path("second")), testKeys(), patience), SqlError);
}

TEST(BookBackup, leavesNothingBehindWhenItFailsOrIsGivenUp)
{
    const TemporaryBook book;
    const QString path = book.path("a.tar");
    const QString before = namesIn(book.folder());
    int asked = 0;
    {
        const StopCheck counting([&asked] { return ++asked > 0; });
        makeBackup(book.files(), path, testKeys());
        QFile::remove(path);
    }
    for (int questions = 0; questions < asked; questions += asked / 10 + 1) {
        int left = questions;
        const StopCheck stop([&left] { return left-- > 0; });
        EXPECT_THROW(makeBackup(book.files(), path, testKeys()), GivenUp) << questions;
        EXPECT_EQ(namesIn(book.folder()), before) << questions;
    }
    makeBackup(book.files(), path, testKeys());
    EXPECT_THROW(makeBackup(book.files(), path, testKeys()), BookCopyFailed) << "a file that exists";
}

TEST(DailyBackup, isMadeOnceADayAndRemovesItsOldOnesOnly)
{
    const TemporaryBook book;
    const QString folder = backupFolder(book.files());
    QDir().mkdir(folder);
    const QDateTime morning(today, QTime(9, 0));
    QStringList kept{"lorvan-2020-01-01-080000.tar", "lorvan-daily-2020-01-02-080000.tar", "notes.txt"};
    for (int day = -29; day < 0; ++day)
        kept += nameOf(today.addDays(day));
    for (const QString& name :
        kept + QStringList{"lorvan-daily-2020-01-01-080000.tar", "lorvan-daily-2026-11-22-080000.tar.part"})
        writeFile(folder + u'/' + name, {});
    const auto made = makeDailyBackup(book.files(), testKeys(), morning);
    ASSERT_TRUE(made);
    EXPECT_EQ(valueIn(*made, "SELECT count(*) || ' ' || (SELECT count(*) FROM other.codes) FROM kvdikoi"), "ok 2 0");
    EXPECT_FALSE(makeDailyBackup(book.files(), testKeys(), morning.addSecs(36'000)));
    kept += nameOf(today);
    kept.sort();
    EXPECT_EQ(namesIn(folder), kept.join(u' '));
    EXPECT_TRUE(makeDailyBackup(book.files(), testKeys(), morning.addDays(1)));
}

TEST(BackupRetention, keepsThirtyDaysAndTheLastOfEachEarlierMonth)
{
    const QStringList all = workingDays(QDate(2025, 1, 1), today);
    QStringList kept = all;
    for (const QString& name : outdatedBackups(all, today))
        ASSERT_EQ(kept.removeAll(name), 1);
    EXPECT_EQ(kept.size(), 30 + 22);
    EXPECT_EQ(kept.mid(20, 3),
        (QStringList{nameOf(QDate(2026, 9, 30)), nameOf(QDate(2026, 10, 19)), nameOf(QDate(2026, 10, 20))}));
    EXPECT_EQ(kept.first() + kept.last(), nameOf(QDate(2025, 1, 31)) + nameOf(today));
    EXPECT_EQ(outdatedBackups(kept, today), QStringList());
}

TEST(BackupRetention, removesNothingThatItCannotBeSureOf)
{
    const QStringList month = workingDays(QDate(2026, 6, 1), QDate(2026, 6, 30)); // 26 days
    const QString earlier = nameOf(QDate(2026, 5, 4));
    const QStringList strange{"lorvan-2020-01-01-090000.tar", "lorvan-2020-01-02-090000.tar",
        "lorvan-daily-2020-01-01-090000.tar.part", "lorvan-daily-2020-13-01-090000.tar",
        "xlorvan-daily-2020-01-01-090000.tar", "lorvan-daily-2020-01-01-090000.tar\n", {}};
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
