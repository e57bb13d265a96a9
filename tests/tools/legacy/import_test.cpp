#include "book/schema_upgrade.h"
#include "support/staging_folder.h"
#include "support/temporary_book.h"
#include "tools/legacy/older_books.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <set>

#include <sys/wait.h>
#include <unistd.h>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18);

Connection openDatabase(const QString& path)
{
    return Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
}

class Import : public testing::Test {
protected:
    [[nodiscard]] QString older(const QString& name = {}) const
    {
        return folder.filePath(QStringLiteral("older/") + name);
    }
    [[nodiscard]] BookFiles made() const { return BookFiles(folder.filePath(QStringLiteral("new"))); }

    /// A copy of a sample book, to be changed.
    void copyOlder(const QString& book) const
    {
        QDir(older()).removeRecursively();
        QDir().mkpath(older());
        for (const QString& name : {QStringLiteral("lorvan.mdb"), QStringLiteral("mapcodes.mdb")}) {
            ASSERT_TRUE(QFile::copy(olderBook(book) + u'/' + name, older(name)));
            QFile::setPermissions(older(name), QFile::ReadOwner | QFile::WriteOwner);
        }
    }

    void write(const QString& path, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// Writes another number into the one row of taytothta: a count of columns, the number, the mask.
    void setVersion(char before, char after) const
    {
        const auto row = [](char version) {
            return QByteArray::fromHex("0100") + version + QByteArray::fromHex("00000001");
        };
        QByteArray content = fileContent(older(QStringLiteral("lorvan.mdb")));
        ASSERT_EQ(content.count(row(before)), 1);
        write(older(QStringLiteral("lorvan.mdb")), content.replace(row(before), row(after)));
    }

    [[nodiscard]] ToolRun runImport(const QString& options = {}) const
    {
        return runTool(someDay, QStringLiteral("import|%1|%2%3").arg(older(), made().dataFolder(), options));
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Import, bringsOverEveryRowAndLeavesTheOlderBookAlone)
{
    const struct {
        const char* book;
        const char* version;
        const char* keyToCome; ///< Of the next movement.
        const char* sums;
    } cases[] = {
        {"v3", "3", "5231", "στο παλιό βιβλίο"},
        {"v1", "1", "318", "το πρόγραμμα θα ρωτήσει"},
        {"empty", "", "1", "Έσοδα: 0,00 στο παλιό βιβλίο, 0,00 στο νέο"},
    };
    for (const auto& [name, version, keyToCome, said] : cases) {
        const QString book = QString::fromLatin1(name);
        copyOlder(book);
        const auto before = contentOf(older());
        const ToolRun run = runImport();
        ASSERT_EQ(run.status, ExitStatus::Done) << name << run.errors;
        EXPECT_NE(run.out.find(said), std::string::npos) << run.out;
        EXPECT_EQ(contentOf(older()), before);
        EXPECT_EQ(contentOf(made().dataFolder()).size(), 3u);
        EXPECT_EQ(contentOf(made().dataFolder())[QStringLiteral("lorvan.dat")].left(1), "0");

        Connection main = openDatabase(made().mainDatabase());
        Connection auxiliary = openDatabase(made().auxiliaryDatabase());
        for (const char* const table : {"kinhseis", "tameio", "kvdikoi", "omades", "taytothta"})
            EXPECT_EQ(storedRows(main, QString::fromLatin1(table)), truthRows(book, QString::fromLatin1(table)))
                << name << table;
        for (const char* const table : {"klhsimotameioy", "codes"})
            EXPECT_EQ(storedRows(auxiliary, QString::fromLatin1(table)), truthRows(book, QString::fromLatin1(table)))
                << name << table;
        EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QString::fromLatin1(version));
        EXPECT_EQ(needsUpgrade(main), book != QStringLiteral("v3"));
        main.execute("DELETE FROM kinhseis; INSERT INTO kinhseis (kvdikos) VALUES (1)");
        EXPECT_EQ(valueOf(main, "SELECT aa FROM kinhseis"), QString::fromLatin1(keyToCome));
        ASSERT_TRUE(QDir(made().dataFolder()).removeRecursively());
    }
}

TEST_F(Import, tellsWhatItDoesNotTakeAndChangesNothing)
{
    const struct {
        const char* what;
        std::function<void()> prepare;
        const char* message;
    } cases[] = {
        {"cut off", [&] { QFile(older(QStringLiteral("lorvan.mdb"))).resize(997'105); },
            "lorvan.mdb, σελίδα 243: το αρχείο είναι κομμένο"},
        {"no main file", [&] { QFile::remove(older(QStringLiteral("lorvan.mdb"))); },
            "lorvan.mdb: το αρχείο δεν υπάρχει"},
        {"no auxiliary file", [&] { QFile::remove(older(QStringLiteral("mapcodes.mdb"))); },
            "mapcodes.mdb: το αρχείο δεν υπάρχει"},
        {"empty file", [&] { write(older(QStringLiteral("mapcodes.mdb")), {}); }, "mapcodes.mdb: το αρχείο είναι κενό"},
        {"a folder",
            [&] {
                QFile::remove(older(QStringLiteral("mapcodes.mdb")));
                QDir().mkpath(older(QStringLiteral("mapcodes.mdb")));
            },
            "mapcodes.mdb: δεν είναι αρχείο"},
        {"another file", [&] { write(older(QStringLiteral("lorvan.mdb")), QByteArray(8192, 'x')); },
            "lorvan.mdb: δεν είναι βάση δεδομένων της παλαιότερης μορφής"},
        {"today's form",
            [&] {
                QDir(older()).removeRecursively();
                EXPECT_EQ(runTool(someDay, QStringLiteral("create|") + older()).status, ExitStatus::Done);
            },
            "ήδη στη σημερινή μορφή"},
        {"a table missing",
            [&] {
                QFile::remove(older(QStringLiteral("mapcodes.mdb")));
                QFile::copy(older(QStringLiteral("lorvan.mdb")), older(QStringLiteral("mapcodes.mdb")));
            },
            "πίνακας klhsimotameioy: ο πίνακας λείπει"},
        {"a version of the future", [&] { setVersion(3, 4); }, "Η έκδοση 4 της βάσης δεδομένων είναι άγνωστη"},
        {"a version that its columns belie",
            [&] {
                copyOlder(QStringLiteral("v1"));
                setVersion(1, 3);
            },
            "πίνακας kinhseis, στήλη L_tajeos: η στήλη λείπει"},
        {"no folder", [&] { QDir(older()).removeRecursively(); }, "Δεν υπάρχει φάκελος"},
        {"a book is there", [&] { write(made().mainDatabase(), "kept"); }, "Υπάρχει ήδη το αρχείο"},
    };
    for (const auto& [what, prepare, message] : cases) {
        copyOlder(QStringLiteral("v3"));
        prepare();
        const auto before = contentOf(folder.path());
        const ToolRun run = runImport();
        EXPECT_EQ(run.status, ExitStatus::Failed) << what;
        EXPECT_NE(run.errors.find(message), std::string::npos) << what << ": " << run.errors;
        EXPECT_EQ(run.out, "") << what;
        EXPECT_EQ(contentOf(folder.path()), before) << what;
    }
}

TEST_F(Import, leavesBalancesThatTheMovementsContradictAsTheyWere)
{
    const struct {
        const char* book;
        const char* row; ///< Income, expense and balance of a day.
        const char* changed;
        const char* said;
        const char* query;
        const char* answer;
    } cases[] = {
        {"v1", "8f526644f6e8b64314de0a44", "8f526644f6e8b64314de2344",
            "κινήσεις: 1\n  (έσοδα / έξοδα / υπόλοιπο· μεταφέρθηκαν όπως ήταν)\n"
            "  01-02-1999: 921,29 / 365,82 / 655,47, από τις κινήσεις 921,29 / 365,82 / 555,47\n",
            "SELECT ypoloipo FROM tameio WHERE hmeromhnia=19990201", "6554700"},
        {"v3", "cdccf744000000003d72d245", "cdccf744000000003d92d545", "κινήσεις: 0\n", // the last day of the book
            "SELECT day || ' ' || amount FROM opening_difference", "20061229 1000000"},
    };
    for (const auto& [book, row, changed, said, query, answer] : cases) {
        copyOlder(QString::fromLatin1(book));
        QByteArray content = fileContent(older(QStringLiteral("lorvan.mdb")));
        ASSERT_EQ(content.count(QByteArray::fromHex(row)), 1) << book;
        content.replace(QByteArray::fromHex(row), QByteArray::fromHex(changed));
        write(older(QStringLiteral("lorvan.mdb")), content);
        const ToolRun run = runImport();
        EXPECT_EQ(run.status, ExitStatus::Done) << run.errors;
        EXPECT_NE(run.out.find(said), std::string::npos) << run.out;
        Connection main = openDatabase(made().mainDatabase());
        EXPECT_EQ(valueOf(main, query), QString::fromUtf8(answer)) << book;
        QDir(made().dataFolder()).removeRecursively();
    }
}

TEST_F(Import, findsFilesInCapitalsAndWarnsOfALockFile)
{
    copyOlder(QStringLiteral("v1"));
    ASSERT_TRUE(QFile::rename(older(QStringLiteral("lorvan.mdb")), older(QStringLiteral("LORVAN.MDB"))));
    write(older(QStringLiteral("Lorvan.ldb")), {});
    const ToolRun run = runImport();
    EXPECT_EQ(run.status, ExitStatus::Done);
    EXPECT_NE(run.errors.find("Lorvan.ldb"), std::string::npos) << run.errors;
}

TEST_F(Import, salvagesWhatCanBeReadAndListsTheRest)
{
    copyOlder(QStringLiteral("v3"));
    ASSERT_TRUE(QFile::resize(older(QStringLiteral("lorvan.mdb")), 997'105));
    ASSERT_TRUE(QFile::remove(older(QStringLiteral("mapcodes.mdb"))));
    const ToolRun refused = runImport();
    EXPECT_EQ(refused.status, ExitStatus::Failed);
    EXPECT_NE(refused.errors.find("διαβάζονται: kinhseis 2706, tameio 0, kvdikoi 35,"), std::string::npos)
        << refused.errors;
    const ToolRun run = runImport(QStringLiteral("|--salvage"));
    ASSERT_EQ(run.status, ExitStatus::Found) << run.errors;
    for (const char* const part :
        {"κομμένο", "πίνακας kinhseis: βρέθηκαν", "mapcodes.mdb: το αρχείο δεν υπάρχει", "πίνακας kinhseis, σελίδα"})
        EXPECT_NE(run.out.find(part), std::string::npos) << part << run.out;

    Connection main = openDatabase(made().mainDatabase());
    const auto rows = truthRows(QStringLiteral("v3"), QStringLiteral("kinhseis"));
    const std::set<TruthRow> truth(rows.begin(), rows.end());
    const auto stored = storedRows(main, QStringLiteral("kinhseis"));
    EXPECT_GT(stored.size(), 1'000u);
    EXPECT_LT(stored.size(), truth.size());
    for (const TruthRow& row : stored)
        EXPECT_TRUE(truth.contains(row)) << row.front().toStdString();
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QStringLiteral("3"));
}

TEST_F(Import, takesBackAMoveThatAKilledProcessDidNotFinish)
{
    copyOlder(QStringLiteral("v1"));
    QDir().mkpath(made().dataFolder());
    const pid_t child = fork();
    if (child == 0) {
        const StagingFolder staging(made().dataFolder());
        createBook(staging.files());
        staging.noteMove();
        QFile::rename(staging.files().auxiliaryDatabase(), made().auxiliaryDatabase());
        QFile::rename(staging.files().usageMarker(), made().usageMarker());
        _exit(0);
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    ASSERT_EQ(contentOf(made().dataFolder()).size(), 6u)
        << "both files, the folder with the third, its lock, and the note";
    EXPECT_EQ(runImport().status, ExitStatus::Done);
    EXPECT_EQ(contentOf(made().dataFolder()).size(), 3u);
}

TEST_F(Import, keepsWhatIsNotCertainlyARemainder)
{
    copyOlder(QStringLiteral("v1"));
    QDir().mkpath(made().dataFolder());
    const StagingFolder inUse(made().dataFolder());
    createBook(inUse.files());
    inUse.noteMove();
    const auto before = contentOf(made().dataFolder());
    write(made().auxiliaryDatabase(), "somebody else's");
    EXPECT_EQ(runImport().status, ExitStatus::Failed);
    ASSERT_TRUE(QFile::remove(made().auxiliaryDatabase()));
    EXPECT_EQ(contentOf(made().dataFolder()), before);
}

} // namespace lorvan::test
