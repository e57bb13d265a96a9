#include "backup/book_archive.h"
#include "backup/book_backup.h"
#include "backup/book_restore.h"
#include "backup/daily_backup.h"
#include "book/pending_restore.h"
#include "book/schema_guard.h"
#include "platform/engine/transaction.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"
#include "users/administration.h"

#include <QProcess>

#include <sys/stat.h>

namespace lorvan::test {
namespace {

const QDateTime morning(QDate(2026, 11, 23), QTime(9, 0));

void plant(std::string_view kind, const QString& target, const QString& path)
{
    if (kind == "pipe") {
        ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else if (kind == "folder") {
        ASSERT_TRUE(QDir().mkdir(path));
    } else {
        const bool isToFile = kind == "link to a file";
        ASSERT_TRUE(QFile::link(isToFile ? target + "/lorvan.mdb" : target, path));
    }
}

/// The reason for which the archive is not restored, neither as a new book nor over another: both leave no trace.
std::string refusalOf(const QString& archive)
{
    const TemporaryBook other;
    const QString names = namesIn(other.folder());
    const std::string said = failureOf([&] { RestoredBook(archive, BookFiles(other.path("new"))); });
    if (!said.empty()) {
        EXPECT_THROW(RestoredBook(archive, other.files()), BackupUnusable) << said;
    }
    EXPECT_EQ(namesIn(other.folder()), names) << said;
    return said;
}

/// The same for the book in `folder`, packed as it is.
std::string refusalOfPacked(const QString& folder)
{
    const QTemporaryDir place;
    File archive = Folder(place.path()).open("a.tar", Folder::Opening::MakeNew);
    packBook(Folder(folder), archive);
    return refusalOf(archive.path());
}

} // namespace

TEST(HostileFolder, whatIsPlantedInItLeadsNobodyOutOfIt)
{
    const TemporaryBook source;
    const QString backup = source.path("a.tar");
    makeBackup(source.files(), backup, testKeys());
    const QString day = "2026-11-23-090000";
    const QStringList layouts[] = {{"backup"}, {"restore.pending"},
        {"backup/.lorvan-1.tar.part", "backup/lorvan-1.tar.part", QStringLiteral("backup/lorvan-daily-%1.tar").arg(day),
            "backup/.lorvan-backup-0123456789abcdef", ".restore", ".restore-0123456789abcdef", "replaced-" + day,
            QStringLiteral("lorvan-%1.mdb.part").arg(day)}};
    for (const QStringList& names : layouts) {
        for (const char* const kind : {"link to a folder", "link to a file", "pipe", "folder"}) {
            const TemporaryBook book;
            const QTemporaryDir outside;
            writeFile(outside.filePath("lorvan.mdb"), "precious");
            writeFile(outside.filePath("lock"), "precious");
            if (names.size() > 1)
                QDir().mkdir(book.path("backup"));
            for (const QString& name : names)
                plant(kind, outside.path(), book.path(name));
            const auto before = contentOf(outside.path());
            (void)failureOf([&] { makeDailyBackup(book.files(), testKeys(), morning); });
            (void)failureOf([&] { finishRestore(book.files()); });
            (void)failureOf([&] { (void)deleteAllData(book.files(), testKeys(), byAll()); });
            (void)failureOf([&] { RestoredBook(backup, book.files()).replace(byAll()); });
            EXPECT_EQ(contentOf(outside.path()), before) << names[0].toStdString() << ": " << kind;
        }
    }
}

TEST(HostileFolder, anArchiveHoldsTwoPlainMembersAndNothingElse)
{
    // What is done with the book and a whole backup of it, and the reason to refuse that.
    const std::pair<const char*, const char*> cases[] = {
        {"tar cf a.tar lorvan.mdb mapcodes.mdb lorvan.dat", "ξένο αρχείο, το «lorvan.dat»"},
        {"tar cf a.tar lorvan.mdb", "λείπει το mapcodes.mdb"},
        {"tar cf a.tar lorvan.mdb mapcodes.mdb lorvan.mdb", "δεν είναι αρχείο βιβλίου"},
        {"tar cPf a.tar lorvan.mdb --transform s,lorvan,../lorvan, lorvan.mdb", "ξένο αρχείο"},
        {"truncate -s 64G lorvan.mdb; tar cSf a.tar lorvan.mdb mapcodes.mdb", "κενά (sparse)"},
        {"truncate -s 0 lorvan.mdb; truncate -s 64G lorvan.mdb; tar cSf a.tar mapcodes.mdb lorvan.mdb", "a.tar"},
        {"mv lorvan.mdb x; ln -s x lorvan.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb", "δεν είναι αρχείο βιβλίου"},
        {"rm mapcodes.mdb; ln lorvan.mdb mapcodes.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb",
            "δεν είναι αρχείο βιβλίου"},
        {"rm lorvan.mdb; mkfifo lorvan.mdb; tar cf a.tar lorvan.mdb mapcodes.mdb", "δεν είναι αρχείο βιβλίου"},
        {"touch $(printf 'a\\033[31m'); tar cf a.tar a*; ", "«a\\u001b[31m»"}, {"mkfifo a.tar", "δεν υπάρχει τέτοιο"},
        {"cp whole.tar a.tar; truncate -s 3G a.tar", "κενά (sparse)"}, {": >a.tar", "a.tar"},
        {"echo text >a.tar", "a.tar"}, {"head -c 300 whole.tar >a.tar", "a.tar"},
        {"head -c 5000 whole.tar >a.tar", "a.tar"}, {"head -c 9000 whole.tar >a.tar", "a.tar"},
        {"tail -c +513 whole.tar >a.tar", "a.tar"}, {"head -c 50000 /dev/zero >a.tar", "a.tar"},
        {"cp whole.tar a.tar; printf '\\000\\377' | dd of=a.tar bs=1 seek=5000 conv=notrunc", "a.tar"}};
    for (const auto& [prepare, reason] : cases) {
        const TemporaryBook book;
        makeBackup(book.files(), book.path("whole.tar"), testKeys());
        QProcess shell;
        shell.setWorkingDirectory(book.folder());
        shell.start("sh", {"-c", prepare});
        ASSERT_TRUE(shell.waitForFinished() && shell.exitCode() == 0) << shell.readAllStandardError().toStdString();
        const std::string said = refusalOf(book.path("a.tar"));
        EXPECT_NE(said.find(reason), std::string::npos) << prepare << ": " << said;
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
        const std::string said = refusalOfPacked(book.folder());
        EXPECT_NE(said.find(each.reason), std::string::npos) << said;
        EXPECT_EQ(said.empty(), std::string_view(each.reason).empty()) << said;
        Connection main = book.openMain();
        EXPECT_EQ(failureOf([&] { refuseForeignObjects(main); }).empty(), each.opens) << each.sql;
    }
    const TemporaryBook older;
    older.makeVersionless();
    EXPECT_EQ(refusalOfPacked(older.folder()), "") << "it lacks the column of a later version";
}

TEST(HostileFolder, copiesAreForThoseWhoMayReadTheBook)
{
    const TemporaryBook book;
    ASSERT_EQ(::chmod(QFile::encodeName(book.folder()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(book.files().mainDatabase()).constData(), 0640), 0);
    const auto made = makeDailyBackup(book.files(), testKeys(), morning);
    ASSERT_TRUE(made);
    EXPECT_EQ(modeOf(*made), 0600U);
    EXPECT_EQ(modeOf(backupFolder(book.files())), 0700U);
    RestoredBook(*made, book.files()).replace(byAll());
    EXPECT_EQ(modeOf(book.files().mainDatabase()), 0640U);
    EXPECT_EQ(modeOf(deleteAllData(book.files(), testKeys(), byAll()).mainDatabase), 0640U);
    const QString fresh = book.path("fresh");
    RestoredBook(*made, BookFiles(fresh)).replace(byAll());
    EXPECT_EQ(modeOf(fresh + "/mapcodes.mdb"), 0600U);
}

} // namespace lorvan::test
