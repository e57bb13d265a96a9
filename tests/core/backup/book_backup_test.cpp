#include "backup/book_backup.h"
#include "backup/second_place.h"
#include "marker/notices.h"

#include "backup/backup_retention.h"
#include "backup/book_archive.h"
#include "backup/copy_writing.h"
#include "backup/daily_backup.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "platform/work.h"
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

TEST(SecondPlace, getsTheDaysBackupAndLosesWhatTheFirstLoses)
{
    const TemporaryBook book;
    const QTemporaryDir stick;
    const SecondPlace place(book.files(), SettingsStore(stick.filePath("settings.ini")));
    const QString folder = stick.filePath("copies");
    for (const QString& refused : {folder, book.folder(), book.folder() + "/backup/.."})
        EXPECT_THROW(place.choose(refused), Refused) << refused.toStdString();
    ASSERT_TRUE(QDir().mkdir(folder));
    place.choose(folder);

    const QString outdated = "lorvan-daily-2020-01-01-080000.tar";
    for (const QString& name : {outdated, QString("lorvan-daily-2020-01-02-080000.tar")}) {
        QDir().mkpath(backupFolder(book.files()));
        writeFile(backupFolder(book.files()) + u'/' + name, {});
        writeFile(folder + u'/' + name, {});
    }
    for (int day = -29; day < 0; ++day)
        writeFile(backupFolder(book.files()) + u'/' + nameOf(today.addDays(day)), {});
    const QDateTime morning(today, QTime(9, 0));
    const auto made = makeDailyBackup(book.files(), testKeys(), morning, &place);
    ASSERT_TRUE(made);
    const QString copy = folder + u'/' + QFileInfo(*made).fileName();
    EXPECT_EQ(namesIn(folder), "lorvan-daily-2020-01-02-080000.tar " + QFileInfo(copy).fileName());
    EXPECT_TRUE(readFile(copy) == readFile(*made));

    ASSERT_TRUE(QFile::remove(copy)); // the stick was not there in the morning
    {
        int left = 2;
        const StopCheck stop([&left] { return left-- > 0; });
        EXPECT_THROW(copyBackup(*made, folder), GivenUp);
        EXPECT_EQ(namesIn(folder), "lorvan-daily-2020-01-02-080000.tar");
    }
    EXPECT_FALSE(makeDailyBackup(book.files(), testKeys(), morning.addSecs(60), &place));
    EXPECT_TRUE(readFile(copy) == readFile(*made));
    writeFile(copy, "somebody else's");
    EXPECT_THROW((void)makeDailyBackup(book.files(), testKeys(), morning.addSecs(90), &place), BookCopyFailed);
    EXPECT_EQ(readFile(copy), "somebody else's");
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
    EXPECT_EQ(
        lastBackupDay(all + QStringList{"lorvan-2026-01-01-090000.tar", nameOf(today.addDays(1)), "x"}, today), today);
    EXPECT_EQ(lastBackupDay({"lorvan-2026-01-02-090000.tar", "lorvan-daily-2026-01-01-090000.tar"}, today),
        QDate(2026, 1, 2));
    EXPECT_FALSE(oldBackupNotice(today.addDays(-7), today));
    EXPECT_TRUE(oldBackupNotice(today.addDays(-8), today)->text.contains("8 ημερών"));
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
