#include "monthly/month_package.h"

#include "cashbook/cash_book.h"
#include "cashbook/journal_keeping.h"
#include "journal/check_code.h"
#include "monthly/month_choice.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"
#include "tools/tool_run.h"

namespace lorvan::test {
namespace {

const QDate march(2024, 3, 1);

/// Each document as its header, on two pages.
BoundDocuments bindAsText(const std::vector<ReportDocument>& documents, const QString& title)
{
    BoundDocuments bound{title.toUtf8(), {}};
    for (const ReportDocument& document : documents) {
        bound.firstPages.push_back(1 + 2 * static_cast<int>(bound.firstPages.size()));
        bound.pdf += '\n' + document.header().toUtf8();
    }
    return bound;
}

class MonthPackageTest : public CommandTest {
protected:
    MonthPackageTest()
    {
        book.addGroup(7, "Έξοδα, \"γενικά\"");
        book.addCode(-5, "γραμμή\nκαι άλλη", false, 7, false);
        Book opened = book.open();
        keepJournal(opened.main(), opened.auxiliary());
        CashBook cashBook(opened, byAll());
        MovementDraft cheque = expenseOf(march.addDays(14), Currency::fromTenThousandths(10'001), "β;\"γ\"");
        cheque.cheque = true;
        cheque.memorandum = cents(-50);
        for (const MovementDraft& each : {incomeOf(march.addDays(-1), cents(100'000), "πριν"),
                 incomeOf(march.addDays(30), cents(700), "<b>τέλος</b>"), cheque, incomeOf(march, cents(1)), cheque,
                 incomeOf(march.addMonths(1), cents(9), "μετά")})
            EXPECT_TRUE(std::holds_alternative<ChangedDay>(cashBook.insert(each)));
        code = cashBook.close(march.addDays(14)).value().checkCode;
    }
    void write(QDate month = march, const DocumentBinding& bind = bindAsText) const
    {
        const MonthRequest request{month, "Κεντρικό <1>", zip, fixedClock().now()};
        writeMonthPackage(request, book.files(), testKeys(), bind, [](qint64, qint64) {});
    }
    [[nodiscard]] QByteArray part(const char* name) const { return partOf(zip, QLatin1String(name)); }

    const QString zip = words("#/πακέτο.zip");
    QString code;
};

} // namespace

TEST_F(MonthPackageTest, holdsTheMonthAndGivesAnEmptyBookItsCodesGroupsAndMovements)
{
    writeFile(zip, "an earlier one");
    write();
    EXPECT_EQ(namesIn(words("#")), "πακέτο.zip");
    EXPECT_EQ(QString(part("hmeres.pdf")).count("Τ α μ ε ί ο"), 3);
    EXPECT_EQ(QString(part("sfragides.csv")).section("\r\n", 1, 1),
        "15/03/2024;1;" + code + ";Σοφία;" + fixedClock().now().toString("dd/MM/yyyy HH:mm:ss"));
    expectParts(part("index.html").toStdString(),
        {"Κεντρικό &lt;1&gt;</h1>", "Μάρτιος 2024", ">1.000,00<", ">7,01<", ">2,0002<", ">1.005,0098<",
            "hmeres.pdf#page=3\">Πα 15-03-2024", qPrintable("κλειστή " + code), "href=\"kvdikoi.csv\""});
    EXPECT_FALSE(part("index.html").contains("ανοίγματος"));

    ASSERT_EQ(run("create|#/other").status, ExitStatus::Done);
    const ToolRun imported = run("import-csv|#/other|#/πακέτο.zip");
    ASSERT_EQ(imported.status, ExitStatus::Done) << imported.errors;
    ASSERT_EQ(run("export|#/other|#/again").status, ExitStatus::Done);
    const auto again = [this](const char* name) { return readFile(words("#/again/") + QLatin1String(name)); };
    for (const char* const name : {"kvdikoi.csv", "omades.csv"})
        EXPECT_EQ(again(name), part(name)) << name;
    const auto withoutKeys = [](const QByteArray& csv) {
        return QString(csv).replace(QRegularExpression("\n\\d+,"), "\n").toStdString();
    };
    EXPECT_EQ(withoutKeys(again("kinhseis.csv")), withoutKeys(part("kinhseis.csv")));
    EXPECT_EQ(part("kinhseis.csv").count("\n"), 5);
}

TEST_F(MonthPackageTest, leavesNothingWhenGivenUpOrRefusedAndTheEarlierFileAsItWas)
{
    writeFile(zip, "an earlier one");
    EXPECT_EQ(failureOf([this] { write(march.addMonths(5)); }), "Ο μήνας Αύγουστος 2024 δεν έχει κινήσεις.");
    {
        const StopCheck stop([] { return false; });
        EXPECT_THROW(write(), GivenUp);
    }
    {
        const WorkWatch lateCancel([](const QString&) {}, [] { return false; });
        EXPECT_THROW(write(), GivenUp);
    }
    EXPECT_NE(failureOf([this] {
        write(march, [](const auto&, const auto&) -> BoundDocuments { throw Refused("χωρίς χαρτί"); });
    }).find("χωρίς χαρτί"),
        std::string::npos);
    EXPECT_EQ(readFile(zip), "an earlier one");
    EXPECT_EQ(namesIn(words("#")), "πακέτο.zip");
    expectRefusal("import-csv|@|#/πακέτο.zip", "ZIP");
}

TEST_F(MonthPackageTest, offersTheLastWholeMonthWithMovements)
{
    Connection main = book.openMain();
    EXPECT_EQ(lastFullMonth(main, QDate(2024, 12, 5)), QDate(2024, 4, 1));
    EXPECT_EQ(lastFullMonth(main, QDate(2024, 4, 30)), march);
    EXPECT_EQ(lastFullMonth(main, QDate(2024, 2, 29)), std::nullopt);
    for (const auto& [typed, month] : {std::pair("03-2024", march), {"3/24", march}, {" 3 ", march}})
        EXPECT_EQ(readTypedMonth(typed, QDate(2024, 12, 5)), month) << typed;
    for (const char* const typed : {"", "13-2024", "15-03-2024", "Μάρτιος"})
        EXPECT_FALSE(readTypedMonth(typed, QDate(2024, 12, 5))) << typed;
}

} // namespace lorvan::test
