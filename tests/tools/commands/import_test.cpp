#include "book/schema_upgrade.h"
#include "book/staging_folder.h"
#include "tools/tool_run.h"

#include <functional>
#include <set>

namespace lorvan::test {
namespace {

/// What rowsOf() a table in a sample book should give, with 0 in a memorandum column that is not there yet.
QByteArray truthRows(const QString& book, const char* table)
{
    return readFile(olderBook(book) + u'/' + QLatin1String(table) + ".txt");
}

class Import : public CommandTest {
protected:
    [[nodiscard]] ToolRun runImport() const { return run("import|#/older|#/new"); }
    [[nodiscard]] Connection made() const { return openCopy(words("#/new/lorvan.mdb")); }

    /// A copy of a sample book, to be changed.
    void copyOlder(const char* name) const
    {
        QDir(words("#/older")).removeRecursively();
        for (const char* file : {"/lorvan.mdb", "/mapcodes.mdb"})
            writeFile(
                words("#/older") + QLatin1String(file), readFile(olderBook(QLatin1String(name)) + QLatin1String(file)));
    }

    /// Exchanges hexadecimal digits that stand in the main file once.
    void exchange(const char* before, const char* after) const
    {
        QByteArray content = readFile(words("#/older/lorvan.mdb"));
        ASSERT_EQ(content.count(QByteArray::fromHex(before)), 1) << before;
        writeFile(
            words("#/older/lorvan.mdb"), content.replace(QByteArray::fromHex(before), QByteArray::fromHex(after)));
    }
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
        const QString older = QString::fromLatin1(name);
        copyOlder(name);
        const auto before = contentOf(words("#/older"));
        const ToolRun imported = runImport();
        ASSERT_EQ(imported.status, ExitStatus::Done) << name << imported.errors;
        expectParts(imported.out, {said});
        EXPECT_EQ(contentOf(words("#/older")), before);
        EXPECT_EQ(contentOf(words("#/new")).size(), 3u);
        EXPECT_TRUE(readFile(words("#/new/lorvan.dat")).startsWith('0'));

        Connection main = made();
        Connection auxiliary = openCopy(words("#/new/mapcodes.mdb"));
        for (const char* const table : {"kinhseis", "tameio", "kvdikoi", "omades", "taytothta"})
            EXPECT_TRUE(rowsOf(main, table) == truthRows(older, table)) << name << table;
        for (const char* const table : {"klhsimotameioy", "codes"})
            EXPECT_TRUE(rowsOf(auxiliary, table) == truthRows(older, table)) << name << table;
        EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QString::fromLatin1(version));
        EXPECT_EQ(needsUpgrade(main), older != "v3");
        main.execute("DELETE FROM kinhseis; INSERT INTO kinhseis (kvdikos) VALUES (1)");
        EXPECT_EQ(valueOf(main, "SELECT aa FROM kinhseis"), QString::fromLatin1(keyToCome));
        ASSERT_TRUE(QDir(words("#/new")).removeRecursively());
    }
}

TEST_F(Import, tellsWhatItDoesNotTakeAndChangesNothing)
{
    const struct {
        std::function<void()> prepare;
        const char* message;
    } cases[] = {
        {[&] { QFile::remove(words("#/older/lorvan.mdb")); }, "lorvan.mdb: το αρχείο δεν υπάρχει"},
        {[&] { QFile::remove(words("#/older/mapcodes.mdb")); }, "mapcodes.mdb: το αρχείο δεν υπάρχει"},
        {[&] {
             QFile::remove(words("#/older/mapcodes.mdb"));
             QDir().mkdir(words("#/older/mapcodes.mdb"));
         },
            "mapcodes.mdb: δεν είναι αρχείο"},
        {[&] { writeFile(words("#/older/lorvan.mdb"), QByteArray(8192, 'x')); },
            "lorvan.mdb: δεν είναι βάση δεδομένων της παλαιότερης μορφής"},
        {[&] {
             QDir(words("#/older")).removeRecursively();
             EXPECT_EQ(run("create|#/older").status, ExitStatus::Done);
         },
            "ήδη στη σημερινή μορφή"},
        {[&] { writeFile(words("#/older/mapcodes.mdb"), readFile(words("#/older/lorvan.mdb"))); },
            "πίνακας klhsimotameioy: ο πίνακας λείπει"},
        {[&] { exchange("01000300000001", "01000400000001"); }, "Η έκδοση 4 της βάσης δεδομένων είναι άγνωστη"},
        {[&] {
             copyOlder("v1");
             exchange("01000100000001", "01000300000001");
         },
            "πίνακας kinhseis, στήλη L_tajeos: η στήλη λείπει"},
        {[&] { QDir(words("#/older")).removeRecursively(); }, "Δεν υπάρχει φάκελος"},
        {[&] { writeFile(words("#/new/lorvan.mdb"), "kept"); }, "Υπάρχει ήδη το αρχείο"},
    };
    for (const auto& [prepare, message] : cases) {
        copyOlder("v3");
        prepare();
        expectRefusal("import|#/older|#/new", message);
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
    for (const auto& [name, row, changed, said, query, answer] : cases) {
        copyOlder(name);
        exchange(row, changed);
        const ToolRun imported = runImport();
        EXPECT_EQ(imported.status, ExitStatus::Done) << imported.errors;
        expectParts(imported.out, {said});
        Connection main = made();
        EXPECT_EQ(valueOf(main, query), QString::fromUtf8(answer)) << name;
        QDir(words("#/new")).removeRecursively();
    }
}

TEST_F(Import, findsFilesInCapitalsAndWarnsOfALockFile)
{
    copyOlder("v1");
    ASSERT_TRUE(QFile::rename(words("#/older/lorvan.mdb"), words("#/older/LORVAN.MDB")));
    writeFile(words("#/older/Lorvan.ldb"), {});
    const ToolRun imported = runImport();
    EXPECT_EQ(imported.status, ExitStatus::Done);
    expectParts(imported.errors, {"Lorvan.ldb"});
}

TEST_F(Import, salvagesWhatCanBeReadAndListsTheRest)
{
    copyOlder("v3");
    ASSERT_TRUE(QFile::resize(words("#/older/lorvan.mdb"), 997'105));
    ASSERT_TRUE(QFile::remove(words("#/older/mapcodes.mdb")));
    expectRefusal("import|#/older|#/new", "διαβάζονται: kinhseis 2706, tameio 0, kvdikoi 35,");
    const ToolRun salvaged = run("import|#/older|#/new|--salvage");
    ASSERT_EQ(salvaged.status, ExitStatus::Found) << salvaged.errors;
    expectParts(salvaged.out,
        {"κομμένο", "πίνακας kinhseis: βρέθηκαν", "mapcodes.mdb: το αρχείο δεν υπάρχει", "πίνακας kinhseis, σελίδα"});

    Connection main = made();
    const auto rows = truthRows("v3", "kinhseis").split('\n');
    const std::set<QByteArray> truth(rows.begin(), rows.end());
    const auto stored = rowsOf(main, "kinhseis").split('\n');
    EXPECT_GT(stored.size(), 1'000);
    EXPECT_LT(stored.size(), rows.size());
    for (const QByteArray& row : stored)
        EXPECT_TRUE(truth.contains(row)) << row.toStdString();
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), "3");
}

TEST_F(Import, keepsWhatIsNotCertainlyARemainder)
{
    copyOlder("v1");
    QDir().mkdir(words("#/new"));
    const StagingFolder inUse(words("#/new"));
    createBook(inUse.files());
    inUse.noteMove();
    writeFile(words("#/new/mapcodes.mdb"), "somebody else's");
    expectRefusal("import|#/older|#/new", "");
}

} // namespace lorvan::test
