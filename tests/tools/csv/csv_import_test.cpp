#include "book/usage_marker.h"
#include "cashbook/cash_book.h"
#include "cashbook/opening_balance.h"
#include "platform/engine/transaction.h"
#include "support/book_model.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

namespace lorvan::test {
namespace {

const QDate today(2024, 3, 20);
const QDate closed(2024, 3, 14);
constexpr auto titles = "kvdikos,hmeromhnia,perigrafh,esoda,ejoda,L_tajeos,epitagh\n";

void write(const QString& folder, const QString& name, const QByteArray& content)
{
    QDir().mkpath(folder);
    QFile file(folder + u'/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

ToolRun importFrom(const QString& book, const QString& folder, const QString& options = {})
{
    return runTool(today, QStringLiteral("import-csv|%1|%2%3").arg(book, folder, options));
}

/// All that the import may change, and nothing else of the main database.
QString contentOfTables(const TemporaryBook& book)
{
    Connection main = book.openMain();
    QString all;
    for (const char* const sql :
        {"SELECT "
         "group_concat(quote(aa)||quote(kvdikos)||quote(hmeromhnia)||quote(perigrafh)||quote(esoda)||quote(ejoda)"
         "||quote(aa_omada)||quote(grammh)||quote(epitagh)||quote(L_tajeos)) FROM (SELECT * FROM kinhseis ORDER BY aa)",
            "SELECT group_concat(quote(hmeromhnia)||quote(esoda)||quote(ejoda)||quote(ypoloipo)) FROM"
            " (SELECT * FROM tameio ORDER BY hmeromhnia)",
            "SELECT "
            "group_concat(quote(aa)||quote(kvdikos)||quote(perigrafh)||quote(omada)||quote(aa_omadas)||quote(lista)"
            "||quote(esodo)||quote(energos)) FROM (SELECT * FROM kvdikoi ORDER BY aa)",
            "SELECT group_concat(day||' '||amount) FROM opening_difference",
            "SELECT group_concat(quote(aa)||quote(sxolia)||quote(perigrafh)) FROM (SELECT * FROM omades ORDER BY aa)",
            "SELECT group_concat(name||seq) FROM (SELECT * FROM sqlite_sequence WHERE name NOT IN ('tameio', "
            "'taken_imports') ORDER BY name)"})
        all += valueOf(main, sql) + u'\n';
    return all;
}

/// What is hard to carry: gaps in numbers, NULL beside empty text, quotes, line ends, long texts, every amount.
void fillAwkwardly(const TemporaryBook& temporary)
{
    temporary.addGroup(7, QStringLiteral("Έξοδα, \"γενικά\""));
    temporary.addGroup(9, QStringLiteral("προσωρινή"));
    temporary.execute("DELETE FROM omades WHERE aa=9; UPDATE omades SET sxolia='' WHERE aa=7");
    temporary.addCode(-5, QStringLiteral("γραμμή\nκαι άλλη"), false, 7, false);
    temporary.addCode(1'234'567, QStringLiteral("ΑΥΤΟΚΙΝΗΤΑ;"), true);
    temporary.execute(
        "UPDATE kvdikoi SET omada='' WHERE kvdikos=200; UPDATE kvdikoi SET omada=' ' WHERE kvdikos=1234567");
    Book book = temporary.open();
    CashBook cashBook(book, {});
    const QString long10000 = QString(5'000, u'ώ') + QString(5'000, u'"');
    for (const QString& text : {QStringLiteral("a,b;\"c\""), QStringLiteral("πάνω\r\nκάτω"), long10000})
        ASSERT_TRUE(std::holds_alternative<DayView>(cashBook.insert(incomeOf(closed, cents(12'345), text))));
    MovementDraft exact = expenseOf(today, Currency::fromTenThousandths(922'337'203'685'477'5807 / 4));
    exact.memorandum = Currency::fromTenThousandths(-12'340);
    exact.cheque = true;
    ASSERT_TRUE(std::holds_alternative<DayView>(cashBook.insert(exact)));
    Transaction counting(book.main());
    setOpeningBalance(book.main(), closed, cents(77'777));
    counting.commit();
    ASSERT_TRUE(std::holds_alternative<DayView>(cashBook.insert(incomeOf(closed, Currency()))));
}

class CsvImportTest : public testing::Test {
protected:
    TemporaryBook book;
    const QString in = book.path(QStringLiteral("csv"));
};

} // namespace

TEST_F(CsvImportTest, givesAnEmptyBookWhatWasExported)
{
    fillAwkwardly(book);
    const ToolRun exported = runTool(today, QStringLiteral("export|%1|%2").arg(book.folder(), in));
    ASSERT_EQ(exported.status, ExitStatus::Done) << exported.errors;
    const TemporaryBook other;
    other.execute("DELETE FROM kvdikoi; DELETE FROM omades; DELETE FROM sqlite_sequence");
    const ToolRun imported = importFrom(other.folder(), in);
    ASSERT_EQ(imported.status, ExitStatus::Done) << imported.errors;
    EXPECT_TRUE(contentOfTables(other) == contentOfTables(book)); // too long to be printed

    Connection main = other.openMain();
    main.execute("UPDATE opening_difference SET amount=amount+1");
    EXPECT_NE(importFrom(other.folder(), in, QStringLiteral("|--again")).errors.find("opening_difference.csv:2: το"),
        std::string::npos);
    main.execute("UPDATE opening_difference SET amount=amount-1");

    // Once more: codes and groups are there, movements are booked again where that is asked for, and that is said.
    EXPECT_EQ(importFrom(other.folder(), in).status, ExitStatus::Failed);
    EXPECT_TRUE(contentOfTables(other) == contentOfTables(book));
    const ToolRun again = importFrom(other.folder(), in, QStringLiteral("|--again"));
    EXPECT_NE(again.out.find("ίδιες κινήσεις με 5"), std::string::npos) << again.out;
    EXPECT_EQ(
        valueOf(main, "SELECT count(*)||','||(SELECT count(*) FROM kvdikoi) FROM kinhseis"), QStringLiteral("10,4"));
}

TEST_F(CsvImportTest, checksAndSumsAsTheSampleBookThatWasExported)
{
    const QString sample = book.path(QStringLiteral("sample"));
    const QString empty = book.path(QStringLiteral("empty"));
    for (const QString& line : {QStringLiteral("demo|") + sample, QStringLiteral("create|") + empty,
             QStringLiteral("export|%1|%2").arg(sample, in), QStringLiteral("import-csv|%1|%2").arg(empty, in)})
        ASSERT_EQ(runTool(today, line).status, ExitStatus::Done) << line.toStdString();
    const auto checkOf = [](const QString& folder) {
        QStringList lines = QString::fromStdString(runTool(today, QStringLiteral("check|") + folder).out).split(u'\n');
        lines.removeIf([](const QString& line) { // these are not taken back
            return line.startsWith(QStringLiteral("Κλεισμένες")) || line.startsWith(QStringLiteral("Χρήστες"));
        });
        return lines;
    };
    EXPECT_GT(checkOf(sample).size(), 10);
    EXPECT_EQ(checkOf(empty).join(u'\n'), checkOf(sample).join(u'\n'));
}

TEST_F(CsvImportTest, takesWhatASpreadsheetWritesAndShiftsLaterDays)
{
    {
        Book opened = book.open();
        (void)CashBook(opened, {}).insert(incomeOf(today, cents(1'000)));
    }
    write(in, QStringLiteral("kvdikoi.csv"),
        "\xEF\xBB\xBFPerigrafh;ESODO;kvdikos;omada\r\n\"Νέος; κωδικός\";0;300;Πωλήσεις\r\n");
    write(in, QStringLiteral("kinhseis.csv"),
        "ejoda;kvdikos;hmeromhnia;perigrafh;esoda\r\n2.50;300;2024-03-15; χαρτί ;\r\n;100;2024-03-15;ταμείο;40.1\r\n");
    const ToolRun run = importFrom(book.folder(), in);
    ASSERT_EQ(run.status, ExitStatus::Done) << run.errors;
    Connection main = book.openMain();
    EXPECT_EQ(storedCashDays(main), (CashDayLines{"20240315 4010 250 3760", "20240320 1000 0 4760"}));
    EXPECT_EQ(valueOf(main, "SELECT group_concat(perigrafh||aa_omada) FROM kinhseis WHERE hmeromhnia=20240315"),
        QStringLiteral("χαρτί1,ταμείο1"));
    EXPECT_EQ(valueOf(main, "SELECT omada||lista||energos FROM kvdikoi WHERE kvdikos=300"),
        QStringLiteral("Πωλήσεις  300 Νέος; κωδικός-1"));
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
        {"kinhseis.csv", movement + "100,2024-03-15,α,\"1,00\",,,\n", ":3: esoda: το «1,00» δεν είναι ποσό"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,,,1.234,\n", ":3: L_tajeos: το ποσό «1.234»"},
        {"kinhseis.csv", movement + "100,2024-03-15,α,1.00,,,ναι\n", ":3: epitagh: το «ναι»"},
        {"kinhseis.csv", movement + "1e2,2024-03-15,α,1.00,,,\n", ":3: kvdikos: το «1e2»"},
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
    const QString before = contentOfTables(book);
    for (const auto& [file, content, message] : cases) {
        QDir(in).removeRecursively();
        write(in, QString::fromLatin1(file), content);
        const ToolRun run = importFrom(book.folder(), in);
        EXPECT_EQ(run.status, ExitStatus::Failed) << message;
        EXPECT_NE(run.errors.find(std::string(file) + message), std::string::npos) << message << '\n' << run.errors;
        EXPECT_EQ(contentOfTables(book), before) << message;
    }
    QDir(in).removeRecursively();
    EXPECT_NE(importFrom(book.folder(), in).errors.find("κανένα από τα αρχεία"), std::string::npos);
    write(in, QStringLiteral("kinhseis.csv"), QByteArray(titles) + "100,2024-03-14,α,1.00,,,\n");
    EXPECT_EQ(importFrom(book.folder(), in, QStringLiteral("|--closed-days")).status, ExitStatus::Done);
}

TEST_F(CsvImportTest, remembersWhatItTookInWhateverForm)
{
    const auto take = [&](const QByteArray& movements, const QString& options = {}) {
        write(in, QStringLiteral("kinhseis.csv"), movements);
        return importFrom(book.folder(), in, options);
    };
    const QByteArray names = "kvdikos,hmeromhnia,perigrafh,esoda,ejoda\n";
    ASSERT_EQ(take(names + "100,2024-03-15,α,1.00,\n").status, ExitStatus::Done);
    const ToolRun refused = take("perigrafh;kvdikos;\"hmeromhnia\";ejoda;esoda;epitagh\r\nα;100;2024-03-15;;1.00;\r\n");
    EXPECT_EQ(refused.status, ExitStatus::Failed);
    EXPECT_NE(refused.errors.find("έχει ήδη εισαχθεί στις 20-03-2024 12:00"), std::string::npos) << refused.errors;
    EXPECT_EQ(take(names + "100,2024-03-15,α,1.01,\n").status, ExitStatus::Done) << "other content";
    EXPECT_EQ(take(names + "100,2024-03-15,α,1.00,\n", QStringLiteral("|--again")).status, ExitStatus::Done);
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT group_concat(movements) FROM taken_imports"), QStringLiteral("1,1,1"));
    EXPECT_EQ(valueOf(main, "SELECT count(DISTINCT digest) FROM taken_imports"), QStringLiteral("2"));
}

TEST_F(CsvImportTest, listsFiftyBadLinesAndBlamesABadCodeOnce)
{
    write(in, QStringLiteral("kvdikoi.csv"), "kvdikos,perigrafh,esodo\n300,,1\n");
    write(in, QStringLiteral("kinhseis.csv"),
        QByteArray(titles) + QByteArray("300,2024-03-15,α,1.00,,,\n").repeated(9)
            + QByteArray("100,2024-03-15,,1.00,,,\n").repeated(69));
    const std::string errors = importFrom(book.folder(), in).errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 52);
    EXPECT_NE(errors.find("kvdikoi.csv:2"), std::string::npos);
    EXPECT_EQ(errors.find("kinhseis.csv:10:"), std::string::npos);
    EXPECT_NE(errors.find("kinhseis.csv:59:"), std::string::npos) << errors;
    EXPECT_NE(errors.find("… και άλλες 20\n"), std::string::npos);
    EXPECT_NE(errors.find("Γραμμές με λάθη: 70."), std::string::npos);
}

TEST_F(CsvImportTest, refusesABookInUse)
{
    write(in, QStringLiteral("kinhseis.csv"), QByteArray(titles) + "100,2024-03-15,α,1.00,,,\n");
    UsageMarker other(book.files().usageMarker(), {QStringLiteral("ΑΝΝΑ"), QStringLiteral("PC7")});
    ASSERT_TRUE(other.claim());
    EXPECT_NE(importFrom(book.folder(), in).errors.find("ΑΝΝΑ"), std::string::npos);
    other.release();
    EXPECT_EQ(importFrom(book.folder(), in).status, ExitStatus::Done);
}

} // namespace lorvan::test
