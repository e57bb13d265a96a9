#include "book/usage_marker.h"
#include "commands/check_report.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18);

ToolRun check(const QString& folder, const QString& option = {})
{
    return runTool(someDay, QStringLiteral("check|") + folder + option);
}

/// From the heading of the sums on.
std::string totalsIn(const std::string& out)
{
    const auto at = out.rfind("Σύνολα\n");
    return at == std::string::npos ? "none" : out.substr(at);
}

/// Thirty days with an income of 1,00 each.
void fill(const TemporaryBook& book)
{
    book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30)"
                 " INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos)"
                 " SELECT 200, 20240300+i, 10000, 0, 0, -(i=5), 0 FROM n;"
                 "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo)"
                 " SELECT hmeromhnia, 10000, 0, 10000*(hmeromhnia-20240300) FROM kinhseis");
}

} // namespace

TEST(CheckCommand, showsTheSumsOfASoundBookAndLeavesItUntouched)
{
    const TemporaryBook book;
    fill(book);
    book.close(QDate(2024, 3, 1));
    const auto before = contentOf(book.folder());
    const ToolRun run = check(book.folder());
    EXPECT_EQ(run.status, ExitStatus::Done);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.out,
        "Δεν βρέθηκαν λάθη.\n\nΣύνολα\n\nΚινήσεις: 30\n  από αυτές επιταγές: 1\nΗμέρες ταμείου: 30\nΚωδικοί: 2\n"
        "Ομάδες: 1\nΚλεισμένες ημέρες: 1\nΧρήστες: 0\nΣύνολο εσόδων: 30,00\nΣύνολο εξόδων: 0,00\n"
        "Σύνολο λογαριασμών τάξεως: 0,00\nΠρώτη ημέρα: 01-03-2024\nΤελευταία ημέρα: 30-03-2024\n"
        "Τελευταίο υπόλοιπο: 30,00\n");
    EXPECT_EQ(contentOf(book.folder()), before);
    EXPECT_EQ(check(book.folder(), QStringLiteral("|--repair")).out, run.out);
    auto after = contentOf(book.folder());
    const QString marker = QStringLiteral("lorvan.dat");
    EXPECT_TRUE(after[marker].startsWith('0'));
    after[marker] = before.at(marker);
    EXPECT_EQ(after, before) << "nothing to repair, no copy";
}

TEST(CheckCommand, listsTheFirstOfManyRepairsThemAfterACopyAndTellsWhatRemains)
{
    const TemporaryBook book;
    fill(book);
    const std::string sound = totalsIn(check(book.folder()).out);
    book.execute("UPDATE tameio SET esoda=9999 WHERE hmeromhnia<20240326; DELETE FROM tameio WHERE hmeromhnia=20240328;"
                 "UPDATE kvdikoi SET kvdikos=7");
    const auto damaged = contentOf(book.folder());
    const ToolRun found = check(book.folder());
    EXPECT_EQ(found.status, ExitStatus::Found);
    for (const char* const part :
        {"Ημέρες με άλλα σύνολα από τις κινήσεις τους: 25\n  01-03-2024, έσοδα 0,9999 αντί για 1,00\n",
            "  και άλλα 5\n", "Ημέρες με κινήσεις που λείπουν από το ταμείο: 1\n  28-03-2024: έσοδα 1,00, έξοδα 0,00,",
            "Επισημάνσεις (δεν είναι λάθη)\n\nΚωδικοί κινήσεων που δεν υπάρχουν πια: 1\n  κωδικός 200: 30 κινήσεις\n"})
        EXPECT_NE(found.out.find(part), std::string::npos) << part << found.out;
    EXPECT_EQ(found.out.find("21-03-2024, "), std::string::npos) << found.out;
    EXPECT_EQ(contentOf(book.folder()), damaged);

    const ToolRun repaired = check(book.folder(), QStringLiteral("|--repair"));
    EXPECT_EQ(repaired.status, ExitStatus::Done) << repaired.out << repaired.errors;
    EXPECT_NE(repaired.out.find("Ημέρες που προστέθηκαν: 1\nΗμέρες με σύνολα ή υπόλοιπο που διορθώθηκαν: 25\n"),
        std::string::npos)
        << repaired.out;
    EXPECT_EQ(totalsIn(repaired.out), totalsIn(check(book.folder()).out));
    EXPECT_EQ(totalsIn(repaired.out).find("Ημέρες ταμείου: 30"), sound.find("Ημέρες ταμείου: 30"));
    const auto after = contentOf(book.folder());
    for (const char* const name : {"lorvan", "mapcodes"}) {
        const QString stem = QString::fromLatin1(name);
        EXPECT_EQ(after.at(stem + QStringLiteral("-2026-11-18-120000.mdb")), damaged.at(stem + QStringLiteral(".mdb")));
    }
}

TEST(CheckCommand, tellsWhichWayAnOpeningBalanceDiffers)
{
    const TemporaryBook book;
    fill(book);
    for (const auto& [change, said] : {std::pair("ypoloipo+50000", "έχουν 5,00 παραπάνω από τις κινήσεις"),
             std::pair("ypoloipo-70000", "έχουν 2,00 λιγότερα από τις κινήσεις")}) {
        book.execute(std::string("UPDATE tameio SET ypoloipo=") + change + " WHERE hmeromhnia>=20240310");
        const ToolRun run = check(book.folder());
        EXPECT_EQ(run.status, ExitStatus::Done);
        EXPECT_NE(run.out.find(said), std::string::npos) << run.out;
    }
}

TEST(CheckCommand, aRepairIsRefusedWhileSomebodyWorksOnTheBook)
{
    const TemporaryBook book;
    book.execute("INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, L_tajeos) VALUES (100, 20240311, 1, 0, 0)");
    UsageMarker marker(book.files().usageMarker(), {QStringLiteral("ΑΝΝΑ"), QStringLiteral("PC7")});
    ASSERT_TRUE(marker.claim());
    const auto before = contentOf(book.folder());
    const ToolRun run = check(book.folder(), QStringLiteral("|--repair"));
    EXPECT_EQ(run.status, ExitStatus::Failed);
    EXPECT_NE(run.errors.find("ΑΝΝΑ στον υπολογιστή PC7"), std::string::npos) << run.errors;
    EXPECT_EQ(contentOf(book.folder()), before);
    EXPECT_EQ(check(book.folder()).status, ExitStatus::Found) << "looking is allowed";
}

TEST(CheckCommand, findsADamagedPageAndDoesNotRepairThen)
{
    const TemporaryBook book;
    fill(book);
    book.execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000)"
        " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh) SELECT 100, 20240301, 'μια μακριά περιγραφή' FROM n");
    for (const QString& path : {book.files().mainDatabase(), book.files().auxiliaryDatabase()}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray sound = file.readAll();
        // One bit in the last page of a table: too little for the engine to stumble over, but not for the
        // authentication.
        file.seek(sound.size() - 300);
        file.write(QByteArray(1, static_cast<char>(sound[sound.size() - 300] ^ 1)));
        file.flush();
        const auto before = contentOf(book.folder());
        const ToolRun run = check(book.folder(), QStringLiteral("|--repair"));
        EXPECT_EQ(run.status, ExitStatus::Found) << run.out << run.errors;
        EXPECT_NE(run.out.find("Βλάβες στα αρχεία"), std::string::npos) << run.out;
        EXPECT_EQ(totalsIn(run.out), "none");
        EXPECT_EQ(contentOf(book.folder()).at(QStringLiteral("lorvan.mdb")), before.at(QStringLiteral("lorvan.mdb")));
        file.seek(0);
        file.write(sound);
    }
}

TEST(CheckCommand, namesWhatDoesNotBelongInABook)
{
    struct Case {
        const char* sql;
        ExitStatus status;
        const char* said;
        bool readsContent;
    };
    const Case cases[] = {{"CREATE TRIGGER thief AFTER INSERT ON kinhseis BEGIN DELETE FROM omades; END",
                              ExitStatus::Found, "lorvan.mdb: έναυσμα (trigger) «thief»", true},
        {"CREATE INDEX slow ON tameio(abs(esoda))", ExitStatus::Found, "ευρετήριο «slow» πάνω σε παράσταση", false},
        {"ALTER TABLE taytothta RENAME TO t; CREATE VIEW taytothta AS WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT"
         " i+1 FROM n) SELECT i AS ariumos FROM n WHERE i<0",
            ExitStatus::Found, "προβολή (view) «taytothta»", false},
        {"CREATE TABLE notes(a)", ExitStatus::Done, "lorvan.mdb: πίνακας «notes»", true}};
    for (const Case& each : cases) {
        const TemporaryBook book;
        book.execute(each.sql);
        const ToolRun run = check(book.folder());
        EXPECT_EQ(run.status, each.status) << run.out << run.errors;
        EXPECT_NE(run.out.find(each.said), std::string::npos) << run.out;
        EXPECT_EQ(totalsIn(run.out) != "none", each.readsContent) << run.out;
    }
    const TemporaryBook open;
    QFile::setPermissions(open.folder(), QFile::permissions(open.folder()) | QFile::ReadOther | QFile::ExeOther);
    QFile::setPermissions(open.files().mainDatabase(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    const ToolRun run = check(open.folder());
    EXPECT_EQ(run.status, ExitStatus::Done);
    EXPECT_NE(run.out.find("κάθε χρήστης του υπολογιστή: 1\n  " + open.files().mainDatabase().toStdString()),
        std::string::npos)
        << run.out;
}

TEST(CheckReport, showsAmountsToTheirLastDigit)
{
    const std::pair<std::int64_t, const char*> cases[] = {{0, "0,00"}, {-50, "-0,0050"}, {12'345'678, "1.234,5678"},
        {-12'345'600, "-1.234,56"}, {INT64_MIN, "-922.337.203.685.477,5808"}};
    for (const auto& [units, text] : cases)
        EXPECT_EQ(exactAmountText(Currency::fromTenThousandths(units)).toStdString(), text);
}

} // namespace lorvan::test
