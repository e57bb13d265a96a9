#include "backup/book_archive.h"
#include "backup/book_backup.h"
#include "backup/book_restore.h"
#include "backup/daily_backup.h"
#include "book/pending_restore.h"
#include "book/schema_guard.h"
#include "platform/engine/transaction.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"
#include "users/administration.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace lorvan::test {
namespace {

const QDateTime morning(QDate(2026, 11, 23), QTime(9, 0));
const auto always = [] { return true; };

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

void plant(std::string_view kind, const QString& target, const QString& path)
{
    if (kind == "pipe") {
        ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else if (kind == "folder") {
        ASSERT_TRUE(QDir().mkdir(path));
    } else {
        const bool isToFile = kind == "link to a file";
        ASSERT_TRUE(QFile::link(isToFile ? target + QStringLiteral("/lorvan.mdb") : target, path));
    }
}

/// What somebody refuses or fails at may fail; it is what it leaves that counts.
template <typename Action> std::string whyNot(const Action& action)
{
    try {
        action();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return {};
}

/// The reason for which the book in `folder`, packed as it is, is not restored.
std::string refusalOf(const QString& folder)
{
    const QTemporaryDir place;
    const Folder target(place.path());
    File archive = target.open(QStringLiteral("a.tar"), Folder::Opening::MakeNew);
    packBook(Folder(folder), archive, {});
    return whyNot([&] { RestoredBook(archive.path(), BookFiles(place.filePath(QStringLiteral("new")))); });
}

mode_t modeOf(const QString& path)
{
    struct stat found { };
    return ::lstat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & 07777U : 0;
}

} // namespace

TEST(HostileFolder, whatIsPlantedInItLeadsNobodyOutOfIt)
{
    const TemporaryBook source;
    const QString backup = source.path(QStringLiteral("a.tar"));
    makeBackup(source.files(), backup, testKeys(), always);
    const QString day = QStringLiteral("2026-11-23-090000");
    const QStringList layouts[] = {{QStringLiteral("backup")}, {QStringLiteral("restore.pending")},
        {QStringLiteral("backup/.lorvan-1.tar.part"), QStringLiteral("backup/lorvan-1.tar.part"),
            QStringLiteral("backup/lorvan-daily-%1.tar").arg(day),
            QStringLiteral("backup/.lorvan-backup-0123456789abcdef"), QStringLiteral(".restore"),
            QStringLiteral(".restore-0123456789abcdef"), QStringLiteral("replaced-") + day,
            QStringLiteral("lorvan-%1.mdb.part").arg(day)}};
    for (const QStringList& names : layouts) {
        for (const char* const kind : {"link to a folder", "link to a file", "pipe", "folder"}) {
            const TemporaryBook book;
            const QTemporaryDir outside;
            write(outside.filePath(QStringLiteral("lorvan.mdb")), "precious");
            write(outside.filePath(QStringLiteral("lock")), "precious");
            if (names.size() > 1)
                QDir().mkdir(book.path(QStringLiteral("backup")));
            for (const QString& name : names)
                plant(kind, outside.path(), book.path(name));
            const auto before = contentOf(outside.path());
            (void)whyNot([&] { makeDailyBackup(book.files(), testKeys(), morning, always); });
            (void)whyNot([&] { finishRestore(book.files()); });
            (void)whyNot([&] { (void)deleteAllData(book.files(), testKeys(), morning); });
            (void)whyNot([&] { RestoredBook(backup, book.files()).replace(morning); });
            EXPECT_EQ(contentOf(outside.path()), before) << names[0].toStdString() << ": " << kind;
        }
    }
}

TEST(HostileFolder, anArchiveHoldsTwoPlainMembersAndNothingElse)
{
    struct Case {
        const char* prepare;
        const char* reason;
    };
    const Case cases[] = {{"tar cf a.tar lorvan.mdb mapcodes.mdb lorvan.dat", "ξένο αρχείο, το «lorvan.dat»"},
        {"tar cf a.tar lorvan.mdb", "λείπει το mapcodes.mdb"},
        {"tar cf a.tar lorvan.mdb mapcodes.mdb lorvan.mdb", "δεν είναι αρχείο βιβλίου"},
        {"truncate -s 64G lorvan.mdb; tar cSf a.tar lorvan.mdb mapcodes.mdb", "κενά (sparse)"},
        {"truncate -s 0 lorvan.mdb; truncate -s 64G lorvan.mdb; tar cSf a.tar mapcodes.mdb lorvan.mdb", "a.tar"},
        {"mv lorvan.mdb x; ln -s x lorvan.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb", "δεν είναι αρχείο βιβλίου"},
        {"rm mapcodes.mdb; ln lorvan.mdb mapcodes.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb",
            "δεν είναι αρχείο βιβλίου"},
        {"rm lorvan.mdb; mkfifo lorvan.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb", "δεν είναι αρχείο βιβλίου"},
        {"touch $(printf 'a\\033[31m'); tar cf a.tar a*; ", "«a\\u001b[31m»"}, {"mkfifo a.tar", "δεν υπάρχει τέτοιο"},
        {"tar cf a.tar lorvan.mdb mapcodes.mdb; truncate -s 3G a.tar", "κενά (sparse)"},
        {"tar cf b.tar lorvan.mdb mapcodes.mdb; head -c 9000 b.tar >a.tar", "a.tar"}};
    for (const Case& each : cases) {
        const TemporaryBook book;
        QProcess shell;
        shell.setWorkingDirectory(book.folder());
        shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QString::fromUtf8(each.prepare)});
        ASSERT_TRUE(shell.waitForFinished() && shell.exitCode() == 0) << shell.readAllStandardError().toStdString();
        const QTemporaryDir place;
        const std::string said = whyNot([&] {
            RestoredBook(book.path(QStringLiteral("a.tar")), BookFiles(place.filePath(QStringLiteral("new"))));
        });
        EXPECT_NE(said.find(each.reason), std::string::npos) << each.prepare << ": " << said;
        EXPECT_TRUE(QDir(place.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) << each.prepare;
    }
}

TEST(HostileFolder, whatActsByItselfInADatabaseIsNamedAndNotRestored)
{
    struct Case {
        const char* sql;
        const char* reason; ///< Empty for what is let in.
        bool opens;
    };
    const Case cases[] = {
        {"CREATE TRIGGER thief AFTER INSERT ON kinhseis BEGIN UPDATE kinhseis SET esoda=esoda-100000; END",
            "έναυσμα (trigger) «thief»", true},
        {"CREATE VIEW \"a\x1b[31m\" AS SELECT 1", "προβολή (view) «a\\u001b[31m»", true},
        {"ALTER TABLE tameio RENAME TO spare; CREATE VIEW tameio AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT"
         " i+1 FROM n) SELECT i AS aa, i AS hmeromhnia, 0 AS esoda, 0 AS ejoda, 0 AS ypoloipo FROM n",
            "προβολή (view) «tameio»", false},
        {"CREATE VIEW codes AS SELECT 'x' AS uname, 'y' AS upass", "προβολή (view) «codes»", false},
        {"ALTER TABLE tameio RENAME TO spare; CREATE VIEW tameio AS SELECT 1 AS aa; PRAGMA writable_schema=1;"
         " UPDATE sqlite_master SET type='table' WHERE name='tameio'",
            "άγνωστου είδους «tameio»", false},
        {"ALTER TABLE omades RENAME TO spare; CREATE VIRTUAL TABLE omades USING fts4(sxolia, perigrafh)",
            "εικονικός πίνακας (virtual table) «omades»", false},
        {"CREATE INDEX slow ON kinhseis(abs(esoda))", "ευρετήριο «slow» πάνω σε παράσταση", true},
        {"CREATE INDEX slow ON kinhseis(esoda) WHERE hex(zeroblob(400000000))<>'0'",
            "ευρετήριο «slow» με συνθήκη στον πίνακα «kinhseis»", true},
        {"ALTER TABLE tameio RENAME TO spare; CREATE TABLE tameio (aa INTEGER PRIMARY KEY, hmeromhnia UNIQUE /* */ ON"
         " Conflict IGNORE, esoda, ejoda, ypoloipo)",
            "κανόνας στον πίνακα «tameio»", true},
        {"ALTER TABLE omades RENAME TO spare; CREATE TABLE omades (aa INTEGER PRIMARY KEY, sxolia, perigrafh,"
         " check(length(hex(zeroblob(400000000)))>0))",
            "κανόνας στον πίνακα «omades»", true},
        {"ALTER TABLE omades RENAME TO spare; CREATE TABLE omades (aa INTEGER PRIMARY KEY, sxolia DEFAULT 'ON "
         "CONFLICT',"
         " perigrafh, \"check\" -- CHECK\n)",
            "", true},
        {"ALTER TABLE omades RENAME TO spare; CREATE TABLE omades (aa INTEGER PRIMARY KEY, sxolia, perigrafh,"
         " z DEFAULT (zeroblob(100000000)))",
            "τιμή που υπολογίζεται στη στήλη «z» του πίνακα «omades»", true},
        {"ALTER TABLE omades RENAME TO spare; CREATE TABLE omades (aa INTEGER PRIMARY KEY, sxolia, perigrafh) WITHOUT"
         " ROWID",
            "πίνακας «omades» χωρίς κλειδί γραμμής", true},
        {"DROP TABLE omades", "λείπει ο πίνακας «omades»", true},
        {"ALTER TABLE kvdikoi RENAME TO spare; CREATE TABLE kvdikoi (aa, kvdikos)", "λείπει η στήλη «energos»", true},
        {"ALTER TABLE omades ADD COLUMN colour; CREATE TABLE notes(a); CREATE INDEX mine ON tameio(esoda)", "", true}};
    for (const Case& each : cases) {
        const TemporaryBook book;
        book.execute(each.sql);
        const std::string said = refusalOf(book.folder());
        EXPECT_NE(said.find(each.reason), std::string::npos) << said;
        EXPECT_EQ(said.empty(), std::string_view(each.reason).empty()) << said;
        Connection main = book.openMain();
        EXPECT_EQ(whyNot([&] { refuseForeignObjects(main); }).empty(), each.opens) << each.sql;
    }
    const TemporaryBook older;
    older.makeVersionless();
    EXPECT_EQ(refusalOf(older.folder()), "") << "it lacks the column of a later version";
}

TEST(HostileFolder, copiesAreForThoseWhoMayReadTheBook)
{
    const TemporaryBook book;
    ASSERT_EQ(::chmod(QFile::encodeName(book.folder()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(book.files().mainDatabase()).constData(), 0640), 0);
    const auto made = makeDailyBackup(book.files(), testKeys(), morning, always);
    ASSERT_TRUE(made);
    EXPECT_EQ(modeOf(*made), 0600U);
    EXPECT_EQ(modeOf(backupFolder(book.files())), 0700U);
    RestoredBook(*made, book.files()).replace(morning);
    EXPECT_EQ(modeOf(book.files().mainDatabase()), 0640U);
    EXPECT_EQ(modeOf(deleteAllData(book.files(), testKeys(), morning).mainDatabase), 0640U);
    const QString fresh = book.path(QStringLiteral("fresh"));
    RestoredBook(*made, BookFiles(fresh)).replace(morning);
    EXPECT_EQ(modeOf(fresh + QStringLiteral("/mapcodes.mdb")), 0600U);
}

} // namespace lorvan::test
