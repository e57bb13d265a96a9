#include "backup/book_backup.h"
#include "book/claimed_marker.h"
#include "cashbook/cash_book.h"
#include "cashbook/journal_keeping.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "csv/open_book_exchange.h"
#include "csv/taken_imports.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"
#include "proof/opening_balance.h"
#include "proof/trail_audit.h"
#include "support/book_model.h"
#include "tools/tool_run.h"

#include <algorithm>

namespace lorvan::test {
namespace {

const QDate closed(2024, 3, 14);
constexpr auto titles = "kvdikos,hmeromhnia,perigrafh,esoda,ejoda,L_tajeos,epitagh\n";

/// What is hard to carry: gaps in numbers, NULL beside empty text, quotes, line ends, long texts, every amount.
void fillAwkwardly(const TemporaryBook& temporary, QDate today)
{
    temporary.addGroup(7, "Έξοδα, \"γενικά\"");
    temporary.addGroup(9, "προσωρινή");
    temporary.execute("DELETE FROM omades WHERE aa=9; UPDATE omades SET sxolia='' WHERE aa=7");
    temporary.addCode(-5, "γραμμή\nκαι άλλη", false, 7, false);
    temporary.addCode(1'234'567, "ΑΥΤΟΚΙΝΗΤΑ;", true);
    temporary.execute(
        "UPDATE kvdikoi SET omada='' WHERE kvdikos=200; UPDATE kvdikoi SET omada=' ' WHERE kvdikos=1234567");
    Book book = temporary.open();
    CashBook cashBook(book, by());
    const QString long10000 = QString(5'000, u'ώ') + QString(5'000, u'"');
    for (const QString& text : {QString("a,b;\"c\""), QString("πάνω\r\nκάτω"), long10000})
        ASSERT_TRUE(std::holds_alternative<ChangedDay>(cashBook.insert(incomeOf(closed, cents(12'345), text))));
    MovementDraft exact = expenseOf(today, Currency::fromTenThousandths(922'337'203'685'477'5807 / 4));
    exact.memorandum = Currency::fromTenThousandths(-12'340);
    exact.cheque = true;
    ASSERT_TRUE(std::holds_alternative<ChangedDay>(cashBook.insert(exact)));
    Transaction counting(book.main(), byAll());
    setOpeningBalance(book.main(), byAll(), {closed, cents(77'777)});
    counting.commit();
    ASSERT_TRUE(std::holds_alternative<ChangedDay>(cashBook.insert(incomeOf(closed, Currency()))));
}

class CsvImportTest : public CommandTest {
protected:
    void write(const char* name, const QByteArray& content) const
    {
        writeFile(words("#/csv/") + QLatin1String(name), content);
    }
    [[nodiscard]] ToolRun take(const QByteArray& movements, const char* line = "import-csv|@|#/csv") const
    {
        write("kinhseis.csv", movements);
        return run(line);
    }
};

} // namespace

TEST_F(CsvImportTest, givesAnEmptyBookWhatWasExported)
{
    fillAwkwardly(book, today);
    ASSERT_EQ(run("export|@|#/csv").status, ExitStatus::Done);
    ASSERT_EQ(run("create|#/other").status, ExitStatus::Done);
    const ToolRun imported = run("import-csv|#/other|#/csv");
    ASSERT_EQ(imported.status, ExitStatus::Done) << imported.errors;
    ASSERT_EQ(run("export|#/other|#/again").status, ExitStatus::Done);
    for (const char* const name : {"kinhseis", "tameio", "kvdikoi", "omades", "opening_difference"})
        EXPECT_TRUE(readFile(words("#/again/") + QLatin1String(name) + ".csv")
            == readFile(words("#/csv/") + QLatin1String(name) + ".csv"))
            << name;
    Connection main = openAt(words("#/other/lorvan.mdb"));
    Connection original = book.openMain();
    const char* const numbersToCome = "SELECT group_concat(name||seq) FROM (SELECT * FROM sqlite_sequence"
                                      " WHERE name NOT IN ('tameio', 'taken_imports') ORDER BY name)";
    EXPECT_EQ(valueOf(main, numbersToCome), valueOf(original, numbersToCome));

    main.execute("UPDATE opening_difference SET amount=amount+1");
    expectRefusal("import-csv|#/other|#/csv|--again", "opening_difference.csv:2: το");
    main.execute("UPDATE opening_difference SET amount=amount-1");

    // Once more: codes and groups are there, movements are booked again where that is asked for, and that is said.
    expectRefusal("import-csv|#/other|#/csv", "έχει ήδη εισαχθεί");
    expectParts(run("import-csv|#/other|#/csv|--again").out, {"ίδιες κινήσεις με 5"});
    EXPECT_EQ(valueOf(main, "SELECT count(*)||','||(SELECT count(*) FROM kvdikoi) FROM kinhseis"), "10,4");
}

TEST_F(CsvImportTest, takesWhatASpreadsheetWritesAndShiftsLaterDays)
{
    {
        Book opened = book.open();
        (void)CashBook(opened, by()).insert(incomeOf(today, cents(1'000)));
    }
    write("kvdikoi.csv", "\xEF\xBB\xBFPerigrafh;ESODO;kvdikos;omada\r\n\"Νέος; κωδικός\";0;300;Πωλήσεις\r\n");
    write("kinhseis.csv",
        "ejoda;kvdikos;hmeromhnia;perigrafh;esoda\r\n2.50;300;2024-03-15; χαρτί ;\r\n;100;2024-03-15;ταμείο;40.1\r\n");
    const ToolRun imported = run("import-csv|@|#/csv");
    ASSERT_EQ(imported.status, ExitStatus::Done) << imported.errors;
    Connection main = book.openMain();
    EXPECT_EQ(storedCashDays(main), (CashDayLines{"20240315 4010 250 3760", "20240320 1000 0 4760"}));
    EXPECT_EQ(valueOf(main, "SELECT group_concat(perigrafh||aa_omada) FROM kinhseis WHERE hmeromhnia=20240315"),
        "χαρτί1,ταμείο1");
    EXPECT_EQ(
        valueOf(main, "SELECT omada||lista||energos FROM kvdikoi WHERE kvdikos=300"), "Πωλήσεις  300 Νέος; κωδικός-1");
}

TEST_F(CsvImportTest, whatItMovedIsHeldAgainstTheJournal)
{
    {
        Book opened = book.open();
        keepJournal(opened.main(), opened.auxiliary());
        CashBook cashBook(opened, byAll());
        (void)cashBook.insert(incomeOf(closed.addDays(-1), cents(100)));
        (void)cashBook.insert(incomeOf(closed, cents(200)));
        cashBook.close(closed);
        (void)modifyCode(opened.main(), byAll(), 2, {"200", "άλλη", {}, false}, 0);
    }
    const QByteArray main = readFile(book.files().mainDatabase());
    const QByteArray auxiliary = readFile(book.files().auxiliaryDatabase());
    const char* const earlier = "INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda) VALUES (100, 20240313, 500);"
                                "UPDATE tameio SET ypoloipo=ypoloipo+500";
    const struct {
        const char* what;
        QByteArray movements; ///< Beside a new group.
        const char* openings;
        const char* then;
        std::vector<FindingKind> faults;
    } cases[] = {
        {"a group moves nothing", {}, "", earlier, {FindingKind::CarryAltered}},
        {"and makes no code forgotten", {}, "", "UPDATE kvdikoi SET perigrafh='x'", {FindingKind::CodeAltered}},
        {"nor do later movements", "100,2024-03-15,α,1.00,,,\n", "", earlier, {FindingKind::CarryAltered}},
        {"earlier ones by any amount", "100,2024-03-12,α,1.00,,,\n", "", earlier, {}},
        {"a difference moves", {}, "2024-03-12,5.00\n", "", {}},
        {"by its amount", {}, "2024-03-12,5.00\n", earlier, {FindingKind::CarryAltered}},
        {"and stays", {}, "2024-03-15,5.00\n", "DELETE FROM opening_difference", {FindingKind::OpeningAltered}},
        {"a sealed day is sealed again", "100,2024-03-14,α,1.00,,,\n", "2024-03-12,5.00\n", "", {}},
        {"and the seal must be there", "100,2024-03-14,α,1.00,,,\n", "", "DELETE FROM seals WHERE version=2",
            {FindingKind::SealMissing, FindingKind::SealedDayAltered}},
    };
    for (const auto& each : cases) {
        write("omades.csv", "aa,perigrafh\n50,νέα\n");
        write("opening_difference.csv", QByteArray("day,amount\n") + each.openings);
        EXPECT_EQ(take(titles + each.movements, "import-csv|@|#/csv|--closed-days").status, ExitStatus::Done);
        Connection both = book.open().openBoth();
        both.execute(each.then);
        std::vector<FindingKind> faults;
        for (const TrailFault& fault : auditTrail(both).faults)
            faults.push_back(fault.kind);
        EXPECT_EQ(faults, each.faults) << each.what;
        both = openAt(book.files().mainDatabase());
        writeFile(book.files().mainDatabase(), main);
        writeFile(book.files().auxiliaryDatabase(), auxiliary);
    }
}

TEST_F(CsvImportTest, namesEveryBadLineAndStoresNothing)
{
    book.close(closed);
    const QByteArray movement = QByteArray(titles) + "100,2024-03-15,καλή,1.00,,,\n";
    struct {
        const char* file;
        QByteArray content;
        const char* message; ///< As it begins after the file's name.
    } const cases[] = {
        {"kinhseis.csv", movement + "100,2024-03-14,α,1.00,,,\n", ":3: η ημέρα 14-03-2024 είναι κλεισμένη"},
        {"kinhseis.csv", movement + "999,2024-03-15,α,1.00,,,\n", ":3: ο κωδικός 999 δεν υπάρχει"},
        {"kinhseis.csv", movement + "100,15/03/2024,α,1.00,,,\n", ":3: hmeromhnia: το «15/03/2024»"},
        {"kinhseis.csv", movement + "100,2024-03-15, ,1.00,,,\n", ":3: λείπει η περιγραφή"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,1.00,2.00,,\n", ":3: έχει και έσοδα και έξοδα"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,,,1.234,\n", ":3: L_tajeos: το ποσό «1.234»"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,1.00\n", ":3: έχει 4 πεδία, ενώ οι στήλες είναι 7"},
        {"kinhseis.csv", movement + "100,2024-03-15,\"α\n\nβ,1.00,,,\n", ":3: τα εισαγωγικά που ανοίγουν εδώ"},
        {"kinhseis.csv", movement + "\"100\"\n\n\n\"200\",2024-03-15,α,1.00,,,9\n", ":6: epitagh"},
        {"kinhseis.csv", movement + "100,2024-03-15,\xE1\xE2,1.00,,,\n", ":3: το αρχείο δεν είναι κείμενο UTF-8"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,922337203685477.00,,,\n", ":3: τα ποσά της ημέρας 15-03-2024"},
        {"kinhseis.csv", "kvdikos,hmeromhnia,perigrafh,esoda\n", ":1: λείπει η στήλη ejoda"},
        {"kinhseis.csv", "kvdikos,poso\n", ":1: άγνωστη στήλη «poso»"},
        {"kinhseis.csv", "kvdikos,KVDIKOS\n", ":1: η στήλη KVDIKOS υπάρχει δύο φορές"},
        {"kinhseis.csv", "", ":1: το αρχείο είναι κενό"},
        {"kvdikoi.csv", "kvdikos,perigrafh,esodo\n100,Άλλη,1\n", ":2: ο κωδικός 100 υπάρχει ήδη με άλλα στοιχεία"},
        {"kvdikoi.csv", "kvdikos,perigrafh,esodo\n300,ΛΙΑΝΙΚΉ,1\n", ":2: η περιγραφή «ΛΙΑΝΙΚΉ» υπάρχει ήδη"},
        {"kvdikoi.csv", "kvdikos,perigrafh,esodo,omada\n300,α,1,Άγνωστη\n", ":2: omada: δεν υπάρχει ομάδα"},
        {"kvdikoi.csv", "kvdikos,perigrafh,esodo,aa_omadas\n300,α,1,8\n", ":2: aa_omadas: δεν υπάρχει ομάδα"},
        {"kvdikoi.csv", "kvdikos,perigrafh,esodo\n300,,1\n", ":2: λείπει η περιγραφή"},
        {"omades.csv", "aa,perigrafh\n1,Άλλη\n", ":2: ο αριθμός 1 ανήκει στην ομάδα «Πωλήσεις»"},
        {"omades.csv", "aa,perigrafh\n2,πωλήσεις\n", ":2: η ομάδα «πωλήσεις» υπάρχει ήδη"},
        {"omades.csv", "aa,perigrafh\n0,Νέα\n", ":2: aa: οι αριθμοί"},
        {"omades.csv", "aa,perigrafh\n3,\n", ":2: λείπει η ονομασία"},
    };
    for (const auto& [file, content, message] : cases) {
        QDir(words("#/csv")).removeRecursively();
        write(file, content);
        expectRefusal("import-csv|@|#/csv", (std::string(file) + message).c_str());
    }
    QDir(words("#/csv")).removeRecursively();
    expectRefusal("import-csv|@|#/csv", "κανένα από τα αρχεία");
    const QByteArray onAClosedDay = QByteArray(titles) + "100,2024-03-14,α,1.00,,,\n";
    EXPECT_EQ(take(onAClosedDay, "import-csv|@|#/csv|--closed-days").status, ExitStatus::Done);
}

TEST_F(CsvImportTest, remembersWhatItTookInWhateverForm)
{
    const QByteArray names = "kvdikos,hmeromhnia,perigrafh,esoda,ejoda\n";
    ASSERT_EQ(take(names + "100,2024-03-15,α,1.00,\n").status, ExitStatus::Done);
    const ToolRun refused = take("perigrafh;kvdikos;\"hmeromhnia\";ejoda;esoda;epitagh\r\nα;100;2024-03-15;;1.00;\r\n");
    EXPECT_EQ(refused.status, ExitStatus::Failed);
    expectParts(refused.errors, {"έχει ήδη εισαχθεί στις 20-03-2024 12:00"});
    EXPECT_EQ(take(names + "100,2024-03-15,α,1.01,\n").status, ExitStatus::Done) << "other content";
    EXPECT_EQ(take(names + "100,2024-03-15,α,1.00,\n", "import-csv|@|#/csv|--again").status, ExitStatus::Done);
    Connection main = book.openMain();
    EXPECT_EQ(
        valueOf(main, "SELECT group_concat(movements)||' '||count(DISTINCT digest) FROM taken_imports"), "1,1,1 2");
}

TEST_F(CsvImportTest, listsFiftyBadLinesAndBlamesABadCodeOnce)
{
    write("kvdikoi.csv", "kvdikos,perigrafh,esodo\n300,,1\n");
    const std::string errors = take(QByteArray(titles) + QByteArray("300,2024-03-15,α,1.00,,,\n").repeated(9)
        + QByteArray("100,2024-03-15,,1.00,,,\n").repeated(69))
                                   .errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 52);
    EXPECT_EQ(errors.find("kinhseis.csv:10:"), std::string::npos);
    expectParts(errors, {"kvdikoi.csv:2", "kinhseis.csv:59:", "… και άλλες 20\n", "Γραμμές με λάθη: 70."});
}

TEST_F(CsvImportTest, bringsBackAGroupThatWasRemovedWithoutAFinding)
{
    Connection main = book.openMain();
    const auto added = addGroup(main, byAll(), "Νέα");
    write("omades.csv", "aa,perigrafh\n" + QByteArray::number(std::get<CodeGroup>(added).number) + ",Άλλη\n");
    ASSERT_FALSE(removeGroup(main, byAll(), std::get<CodeGroup>(added).number));
    const ToolRun taken = run("import-csv|@|#/csv");
    ASSERT_EQ(taken.status, ExitStatus::Done) << taken.errors;
    EXPECT_EQ(run("check|@").status, ExitStatus::Done) << run("check|@").out;
}

TEST_F(CsvImportTest, ofTheAdministratorReachesClosedDaysAndLeavesTheMarkerFree)
{
    book.close(closed);
    write("kinhseis.csv", QByteArray(titles) + "100,2024-03-14,α,1.00,,,\n");
    const auto takeNow = [this] {
        return importAsAdministrator(
            book.files(), fixedClock(), words("#/csv"), TakenBefore::Refuse, [](qint64, qint64) {});
    };
    {
        const ClaimedMarker other(book.files());
        EXPECT_NE(failureOf(takeNow).find("χρησιμοποιείται"), std::string::npos);
    }
    {
        const WorkWatch lateCancel([](const QString&) {}, [] { return false; });
        EXPECT_THROW((void)takeNow(), GivenUp) << "just before the commit";
    }
    EXPECT_EQ(takeNow().movements, 1);
    EXPECT_THROW((void)takeNow(), AlreadyTaken);
    EXPECT_EQ(run("check|@").status, ExitStatus::Done) << run("check|@").out;
}

/// As the program does it: the file with the movements as it was exported goes into the book that is open.
TEST_F(CsvImportTest, ofAnOpenBookBeginsWithABackup)
{
    const Book opened = book.open();
    ASSERT_EQ(take(QByteArray(titles) + "100,2024-03-15,α,1.00,,,\n").status, ExitStatus::Done);
    const auto none = [](qint64, qint64) {};
    const QDateTime now(today, QTime(12, 0));
    const ExportedBook made = exportOpenBook(book.files(), testKeys(), beside.path(), now, none);
    EXPECT_EQ(made.folder, beside.filePath("lorvan-2024-03-20-120000"));
    EXPECT_THROW((void)exportOpenBook(book.files(), testKeys(), beside.path(), now, none), Refused) << "it is there";
    EXPECT_FALSE(readFile(made.folder + "/codes.csv").contains("upass"));

    EXPECT_THROW(
        (void)importIntoOpenBook(book.files(), testKeys(), by(), made.folder, TakenBefore::Refuse, none), NotPermitted);
    {
        const StopCheck stop([] { return false; });
        EXPECT_THROW(
            (void)importIntoOpenBook(book.files(), testKeys(), byAll(), made.folder, TakenBefore::Refuse, none),
            GivenUp);
    }
    EXPECT_EQ(
        importIntoOpenBook(book.files(), testKeys(), byAll(), made.folder, TakenBefore::Refuse, none).movements, 1);
    EXPECT_THROW((void)importIntoOpenBook(book.files(), testKeys(), byAll(), made.folder, TakenBefore::Refuse, none),
        AlreadyTaken);
    EXPECT_EQ(QDir(backupFolder(book.files())).entryList({"lorvan-2*.tar"}).size(), 2);
}

} // namespace lorvan::test
