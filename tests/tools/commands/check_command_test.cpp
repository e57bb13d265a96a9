#include "commands/findings_text.h"
#include "support/mount.h"
#include "tools/tool_run.h"

namespace lorvan::test {
namespace {

/// From the heading of the sums on.
std::string totalsIn(const std::string& out)
{
    const auto at = out.rfind("Σύνολα\n");
    return at == std::string::npos ? "none" : out.substr(at);
}

class CheckCommandTest : public CommandTest {
protected:
    /// Thirty days with an income of 1,00 each.
    void fill() const
    {
        book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30)"
                     " INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos)"
                     " SELECT 200, 20240300+i, 10000, 0, 0, -(i=5), 0 FROM n;"
                     "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo)"
                     " SELECT hmeromhnia, 10000, 0, 10000*(hmeromhnia-20240300) FROM kinhseis");
    }
};

} // namespace

TEST_F(CheckCommandTest, showsTheSumsOfASoundBookAndLeavesItUntouched)
{
    fill();
    book.close(QDate(2024, 3, 1));
    const auto before = contents();
    const ToolRun checked = run("check|@");
    EXPECT_EQ(checked.status, ExitStatus::Done);
    EXPECT_EQ(checked.errors, "");
    EXPECT_EQ(checked.out,
        "Δεν βρέθηκαν λάθη.\n\nΣύνολα\n\nΚινήσεις: 30\n  από αυτές επιταγές: 1\nΗμέρες ταμείου: 30\nΚωδικοί: 2\n"
        "Ομάδες: 1\nΚλεισμένες ημέρες: 1\nΧρήστες: 0\nΣύνολο εσόδων: 30,00\nΣύνολο εξόδων: 0,00\n"
        "Σύνολο λογαριασμών τάξεως: 0,00\nΠρώτη ημέρα: 01-03-2024\nΤελευταία ημέρα: 30-03-2024\n"
        "Τελευταίο υπόλοιπο: 30,00\n");
    EXPECT_EQ(run("check|@|--repair").out, checked.out);
    EXPECT_TRUE(contents() == before) << "nothing to repair, no copy";
}

TEST_F(CheckCommandTest, anAcceptanceSaysWhichTablesAreNotAsTheyShouldBe)
{
    const struct {
        const char* main;
        const char* auxiliary;
        const char* text;
        ExitStatus status;
    } cases[] = {
        {"DROP TABLE journal", "", "του ημερολογίου (journal). Έγινε νέος", ExitStatus::Done},
        {"", "DROP TABLE seals", "των σφραγίδων (seals). Έγινε νέος", ExitStatus::Done},
        {"DROP TABLE journal; CREATE TABLE journal (id INTEGER PRIMARY KEY)", "", "Δεν έγινε αποδεκτό τίποτα",
            ExitStatus::Found},
    };
    for (const auto& [main, auxiliary, text, status] : cases) {
        book.execute(main);
        book.openAuxiliary().execute(auxiliary);
        const ToolRun checked = run("check|@|--accept");
        EXPECT_EQ(checked.status, status) << checked.errors;
        expectParts(checked.out, {text});
    }
}

TEST_F(CheckCommandTest, listsTheFirstOfManyRepairsThemAfterACopyAndTellsWhatRemains)
{
    fill();
    const std::string sound = totalsIn(run("check|@").out);
    book.execute("UPDATE tameio SET esoda=9999 WHERE hmeromhnia<20240326; DELETE FROM tameio WHERE hmeromhnia=20240328;"
                 "UPDATE kvdikoi SET kvdikos=7");
    const auto damaged = contentOf(book.folder());
    const ToolRun found = run("check|@");
    EXPECT_EQ(found.status, ExitStatus::Found);
    expectParts(found.out,
        {"Ημέρες με άλλα σύνολα από τις κινήσεις τους: 25\n  01-03-2024, έσοδα 0,9999 αντί για 1,00\n",
            "  και άλλα 5\n", "Ημέρες με κινήσεις που λείπουν από το ταμείο: 1\n  28-03-2024: έσοδα 1,00, έξοδα 0,00,",
            "Επισημάνσεις (δεν είναι λάθη)\n\nΚωδικοί κινήσεων που δεν υπάρχουν πια: 1\n  κωδικός 200: 30 κινήσεις\n"});
    EXPECT_EQ(found.out.find("21-03-2024, "), std::string::npos) << found.out;
    EXPECT_EQ(contentOf(book.folder()), damaged);

    const ToolRun repaired = run("check|@|--repair");
    EXPECT_EQ(repaired.status, ExitStatus::Done) << repaired.out << repaired.errors;
    expectParts(repaired.out, {"Ημέρες που προστέθηκαν: 1\nΗμέρες με σύνολα ή υπόλοιπο που διορθώθηκαν: 25\n"});
    EXPECT_EQ(totalsIn(repaired.out), totalsIn(run("check|@").out));
    EXPECT_EQ(totalsIn(repaired.out).find("Ημέρες ταμείου: 30"), sound.find("Ημέρες ταμείου: 30"));
    const auto after = contentOf(book.folder());
    for (const char* const name : {"lorvan", "mapcodes"}) {
        const QString stem = QString::fromLatin1(name);
        EXPECT_EQ(after.at(stem + "-2024-03-20-120000.mdb"), damaged.at(stem + ".mdb"));
    }
}

TEST_F(CheckCommandTest, tellsWhichWayAnOpeningBalanceDiffers)
{
    fill();
    for (const auto& [change, said] : {std::pair("ypoloipo+50000", "έχουν 5,00 παραπάνω από τις κινήσεις"),
             std::pair("ypoloipo-70000", "έχουν 2,00 λιγότερα από τις κινήσεις")}) {
        book.execute(std::string("UPDATE tameio SET ypoloipo=") + change + " WHERE hmeromhnia>=20240310");
        const ToolRun checked = run("check|@");
        EXPECT_EQ(checked.status, ExitStatus::Done);
        expectParts(checked.out, {said});
    }
}

TEST_F(CheckCommandTest, looksWhileAnotherWritesAndOnAReadOnlyFolder)
{
    fill();
    Connection other = book.openMain();
    other.execute("BEGIN IMMEDIATE; DELETE FROM kvdikoi");
    expectParts(run("check|@").out, {"Κωδικοί: 2\n"});
    other.execute("ROLLBACK");
    if (!Mount::readOnly(book.folder()))
        GTEST_SKIP() << "no mounts here: the read-only folder was not tried";
    expectParts(run("check|@").out, {"Κωδικοί: 2\n"});
    Mount::undo(book.folder());
}

TEST_F(CheckCommandTest, refusesWhatIsNoBookOfThisVersion)
{
    expectRefusal("check|@/nowhere", "δεν υπάρχει βιβλίο");
    book.execute("UPDATE taytothta SET ariumos=2");
    expectRefusal("check|@", "παλαιότερης έκδοσης");
    book.makeVersionless();
    expectRefusal("check|@", "παλαιότερης έκδοσης");
    writeFile(book.files().mainDatabase(), QByteArray("\0\1\0\0Standard Jet DB", 19) + QByteArray(4096, '\0'));
    expectRefusal("check|@", "παλιά μορφή");
    QFile::remove(book.files().auxiliaryDatabase());
    expectRefusal("check|@", "λείπει το ");
}

TEST_F(CheckCommandTest, findsADamagedPageAndDoesNotRepairThen)
{
    fill();
    book.execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000)"
        " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh) SELECT 100, 20240301, 'μια μακριά περιγραφή' FROM n");
    book.addUser(QString(3000, 'x'), "1");
    for (const QString& path : {book.files().mainDatabase(), book.files().auxiliaryDatabase()}) {
        const QByteArray sound = readFile(path);
        // One bit in the last page of a table: too little for the engine to stumble over, but not for the
        // authentication.
        QByteArray damaged = sound;
        damaged[sound.size() - 300] = static_cast<char>(sound[sound.size() - 300] ^ 1);
        writeFile(path, damaged);
        const ToolRun checked = run("check|@|--repair");
        EXPECT_EQ(checked.status, ExitStatus::Found) << checked.errors;
        expectParts(checked.out, {"Βλάβες στα αρχεία"});
        EXPECT_EQ(totalsIn(checked.out), "none");
        EXPECT_TRUE(readFile(path) == damaged);
        writeFile(path, sound);
    }
}

TEST_F(CheckCommandTest, namesWhatDoesNotBelongInABook)
{
    const struct {
        const char* sql;
        const char* undo;
        ExitStatus status;
        const char* said;
        bool readsContent;
    } cases[] = {
        {"CREATE TRIGGER thief AFTER INSERT ON kinhseis BEGIN DELETE FROM omades; END", "DROP TRIGGER thief",
            ExitStatus::Found, "lorvan.mdb: έναυσμα (trigger) «thief»", true},
        {"CREATE INDEX slow ON tameio(abs(esoda))", "DROP INDEX slow", ExitStatus::Found,
            "ευρετήριο «slow» πάνω σε παράσταση", false},
        {"CREATE TABLE notes(a)", "DROP TABLE notes", ExitStatus::Done, "lorvan.mdb: πίνακας «notes»", true},
        {"ALTER TABLE taytothta RENAME TO t; CREATE VIEW taytothta AS WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT"
         " i+1 FROM n) SELECT i AS ariumos FROM n WHERE i<0",
            "DROP VIEW taytothta; ALTER TABLE t RENAME TO taytothta", ExitStatus::Found, "προβολή (view) «taytothta»",
            false},
    };
    for (const auto& each : cases) {
        book.execute(each.sql);
        const ToolRun checked = run("check|@");
        EXPECT_EQ(checked.status, each.status) << checked.errors;
        expectParts(checked.out, {each.said});
        EXPECT_EQ(totalsIn(checked.out) != "none", each.readsContent) << checked.out;
        book.execute(each.undo);
    }
    QFile::setPermissions(book.folder(), QFile::permissions(book.folder()) | QFile::ReadOther | QFile::ExeOther);
    QFile::setPermissions(book.files().mainDatabase(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    const std::string open = "κάθε χρήστης του υπολογιστή: 1\n  " + book.files().mainDatabase().toStdString();
    const ToolRun checked = run("check|@");
    EXPECT_EQ(checked.status, ExitStatus::Done);
    expectParts(checked.out, {open.c_str()});
}

TEST(CheckReport, showsAmountsToTheirLastDigit)
{
    const std::pair<std::int64_t, const char*> cases[] = {{0, "0,00"}, {-50, "-0,0050"}, {12'345'678, "1.234,5678"},
        {-12'345'600, "-1.234,56"}, {INT64_MIN, "-922.337.203.685.477,5808"}};
    for (const auto& [units, text] : cases)
        EXPECT_EQ(exactAmountText(Currency::fromTenThousandths(units)).toStdString(), text);
}

} // namespace lorvan::test
