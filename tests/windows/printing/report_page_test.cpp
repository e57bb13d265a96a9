#include "controls/entry_field.h"
#include "report_pdf.h"
#include "windows/preview/printing_test.h"
#include "windows/program_run.h"

#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QTabBar>
#include <QTest>

namespace lorvan::test {
namespace {

class PrintingPageTest : public PrintingTest { };
class ReportQuestions : public PrintingTest { };
class ReportRunning : public PrintingTest { };
class ReportAtTheEnd : public ProgramTest { };

const QString attention = QStringLiteral("Προσοχή");

/// Another program that keeps the book for itself, so that whoever reads it waits.
class LockedBook {
public:
    explicit LockedBook(const TemporaryBook& book)
        : m_connection(book.openMain())
    {
        m_connection.execute("BEGIN EXCLUSIVE");
    }
    void release() { m_connection.execute("ROLLBACK"); }

private:
    Connection m_connection;
};

QStringList codesIn(const ReportDocument& document)
{
    QStringList codes;
    for (int row = 1; !document.cell(row, 1).isEmpty(); ++row)
        codes += document.cell(row, 1);
    return codes;
}

} // namespace

TEST_F(PrintingPageTest, checksTheChoiceThenThePeriod)
{
    const ExpectedBox noReport = information(attention, QStringLiteral("Δεν έχετε επιλέξει την εκτύπωση"));
    const ExpectedBox noDate =
        information(QStringLiteral("Προσοχ'η στην ημερομηνία"), QStringLiteral("Η ημερομηνία είναι λάθος"));
    const struct {
        int report;
        int badField;
        ExpectedBox box;
    } cases[] = {{0, periodStart, noReport}, {1, periodStart, noDate}, {1, periodEnd, noDate}};
    for (const auto& each : cases) {
        startPrinting();
        if (each.report > 0)
            user().clickRow(reports(), each.report - 1);
        if (each.badField > 0)
            user().enter(each.badField, QStringLiteral("31-02-2024"));
        boxes.expect(each.box);
        user().click(user().command(printReport));
        QTest::qWait(30); // a second box would come now
        EXPECT_TRUE(boxes.allSeen());
        EXPECT_EQ(shownFrame(), nullptr);
    }
}

TEST_F(PrintingPageTest, digitsChooseAndWhatDoesNotCountIsQuiet)
{
    startPrinting();
    const auto& hint = user().find<QLabel>(QStringLiteral("periodHint"));
    const QString both = QString(), none = QStringLiteral("Η περίοδος δεν μετρά.");
    const QString first = QStringLiteral("Μετρά μόνο η πρώτη ημερομηνία.");
    const QString second = QStringLiteral("Μετρά μόνο η δεύτερη ημερομηνία.");
    const QStringList hints{second, none, both, both, both, both, both, first, both};
    for (int report = 1; report <= hints.size(); ++report) {
        user().goTo(reports());
        QTest::keyClick(&reports(), static_cast<Qt::Key>(Qt::Key_0 + report));
        EXPECT_EQ(reports().selectionModel()->selectedIndexes().value(0).row(), report - 1);
        EXPECT_EQ(hint.text(), hints[report - 1]) << report;
        for (const int index : {periodStart, periodEnd}) {
            const QString counting = index == periodStart ? first : second;
            const auto& field = dynamic_cast<EntryField&>(user().field(index));
            EXPECT_EQ(field.isQuiet(), hint.text() != both && hint.text() != counting) << report;
            EXPECT_TRUE(field.isEnabled() && !field.isReadOnly());
        }
    }
    user().press(Qt::Key_Return);
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(7)"));
}

TEST_F(PrintingPageTest, usualPeriodsAreChosenWithoutAMouse)
{
    startPrinting();
    user().goTo(user().field(periodEnd));
    user().press(Qt::Key_Return);
    EXPECT_EQ(user().focusName(), QStringLiteral("Command1(1)")) << "Enter goes on from the dates to the report";
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), QStringLiteral("periods"));
    user().press(Qt::Key_Return);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(menu, key);
    EXPECT_EQ(user().field(periodStart).text(), QStringLiteral("01-02-2024"));
    EXPECT_EQ(user().field(periodEnd).text(), QStringLiteral("29-02-2024"));
}

TEST_F(PrintingPageTest, showsTheReportAndStaysUsable)
{
    addMovement(incomeOf(today, cents(12345), QStringLiteral("Πώληση")));
    startPrinting();
    user().enter(periodEnd, QStringLiteral("15/3"));
    print(1);
    ASSERT_NE(shownFrame(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([] {
        return shownFrame()->windowTitle()
            == QStringLiteral(" Ταμείο ημέρας Προσοχή δεν υπάρχει ορισμένος εκτυπωστής)");
    }));
    EXPECT_EQ(documentOf(*shownFrame()).header(), QStringLiteral("Τ α μ ε ί ο  Η μ έ ρ α ς   15-03-2024  Κεντρικό"));
    EXPECT_EQ(documentOf(*shownFrame()).cell(1, 2), QStringLiteral("Πώληση"));
    selectTab(0);
    EXPECT_EQ(movementLine(1).contains(QStringLiteral("Πώληση")), true);

    selectTab(2);
    user().clickRow(reports(), 2);
    user().press(Qt::Key_F2);
    EXPECT_TRUE(shownFrame()->windowTitle().startsWith(QStringLiteral(" Συνοπτικό ταμείο από ... εως")));
    window().close();
    EXPECT_EQ(shownFrame(), nullptr);
}

TEST_F(PrintingPageTest, printsTheChosenGroupAndListsWhatItLeavesOut)
{
    for (const char* const words : {"Όμοια", "Όμοια", "Άλλη"})
        addMovement(incomeOf(today, cents(100), QString::fromUtf8(words)));
    book.execute("UPDATE omades SET perigrafh='Έσοδα' WHERE aa=1;"
                 "UPDATE kvdikoi SET aa_omadas=1, omada='Έσοδα' WHERE kvdikos=100;"
                 "UPDATE kvdikoi SET aa_omadas=2, omada='Έξοδα' WHERE kvdikos=200;"
                 "UPDATE kinhseis SET aa_omada=CASE perigrafh WHEN 'Άλλη' THEN 2 ELSE 1 END");
    startPrinting();
    user().clickRow(user().find<QListView>(QStringLiteral("List2(2)")), 0);
    print(5);
    ASSERT_NE(shownFrame(), nullptr);
    const ReportDocument& document = documentOf(*shownFrame());
    EXPECT_EQ(document.cell(1, 1) + document.cell(1, 4) + document.cell(3, 5), QStringLiteral("ΈσοδαΌμοια1,00"));
    EXPECT_EQ(document.cell(2, 4), QStringLiteral("Υποσύνολο")) << "a row once, and no other group";

    const Driver preview(*shownFrame());
    QWidget& strip = preview.find(QStringLiteral("omissions"));
    ASSERT_TRUE(QTest::qWaitFor([&strip] { return strip.isVisible(); }));
    boxes.whenShown(QStringLiteral("omissionList"), [](QWidget& list) {
        EXPECT_EQ(linesOf(Driver(list).find<QListView>(QStringLiteral("concerned"))).simplified(),
            QStringLiteral("15-03-2024 100 1,00 0 0 Όμοια (2 φορές)"));
        pressIn(list, {Qt::Key_Escape});
    });
    preview.press(Qt::Key_Tab);
    preview.press(Qt::Key_Return);
    EXPECT_TRUE(shownFrame()->isVisible());
}

TEST_F(PrintingPageTest, printsTheDaysThatAreNotClosed)
{
    book.openAuxiliary().execute(
        "INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (20240301), (20240313), (20240315)");
    startPrinting();
    user().enter(periodStart, QStringLiteral("12/3"));
    print(9);
    ASSERT_NE(shownFrame(), nullptr);
    const ReportDocument& document = documentOf(*shownFrame());
    EXPECT_EQ(document.cell(1, 1) + document.cell(2, 1) + document.cell(3, 1), QStringLiteral("12-03-202414-03-2024"));
}

TEST_F(ReportQuestions, detailedOrSummaryWithoutOneChosenFirst)
{
    using Keys = std::vector<Qt::Key>;
    const QString detailed = QStringLiteral("Εκτύπωση επιταγών από ");
    const QString summary = QStringLiteral("Εκτύπωση επιταγών συνοπτικά από ");
    startPrinting();
    for (const auto& [keys, header] :
        {std::pair(Keys{Qt::Key_Return}, detailed), std::pair(Keys{Qt::Key_Space, Qt::Key_Return}, detailed),
            std::pair(Keys{Qt::Key_Down, Qt::Key_Return}, summary), std::pair(Keys{Qt::Key_Escape}, detailed)}) {
        boxes.whenShown(QStringLiteral("Ervthsh"), [&keys = keys](QWidget& question) {
            EXPECT_EQ(shownFrame(), nullptr) << "the frame before is gone";
            for (const char* const option : {"Option1(0)", "Option1(1)"})
                EXPECT_FALSE(question.findChild<QAbstractButton*>(QLatin1String(option))->isChecked());
            pressIn(question, keys);
        });
        print(7);
        ASSERT_NE(shownFrame(), nullptr);
        EXPECT_TRUE(documentOf(*shownFrame()).header().startsWith(header));
    }
}

TEST_F(ReportQuestions, codesAreSortedAndChosenAnewEachTime)
{
    book.addCode(50, QStringLiteral("Ψ"), true, 1, false);
    book.execute("UPDATE kvdikoi SET omada=CASE kvdikos WHEN 200 THEN 'α' ELSE 'Β' END");
    startPrinting();
    const auto answer = [this](std::vector<Qt::Key> keys) {
        boxes.whenShown(QStringLiteral("FormaTajinomhshs"),
            [keys = std::move(keys)](QWidget& question) { pressIn(question, keys); });
    };
    answer({Qt::Key_Down, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return});
    print(2);
    EXPECT_EQ(codesIn(documentOf(*shownFrame())), QStringList({QStringLiteral("200"), QStringLiteral("100")}));
    answer({Qt::Key_Return});
    print(2);
    EXPECT_EQ(codesIn(documentOf(*shownFrame())),
        QStringList({QStringLiteral("50"), QStringLiteral("100"), QStringLiteral("200")}));
}

TEST_F(ReportQuestions, aReportOnChosenCodesTakesTheSummaryWhereNothingIsChosen)
{
    addMovement(incomeOf(today, cents(100)));
    addMovement(expenseOf(today, cents(30)));
    startPrinting();
    const auto answer = [this](std::vector<Qt::Key> keys) {
        boxes.whenShown(
            QStringLiteral("Ervthsh"), [keys = std::move(keys)](QWidget& question) { pressIn(question, keys); });
    };
    answer({Qt::Key_Escape});
    print(4);
    EXPECT_EQ(documentOf(*shownFrame()).cell(2, 1), QStringLiteral("  200 Προμήθειες"));
    user().clickRow(user().find<QListView>(QStringLiteral("List2(1)")), 1);
    answer({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
    print(4);
    EXPECT_EQ(documentOf(*shownFrame()).cell(1, 1), QStringLiteral("200 Προμήθειες"));
    EXPECT_EQ(documentOf(*shownFrame()).cell(2, 3), QStringLiteral("Υποσύνολο"));
}

TEST_F(ReportQuestions, theCardHasTheGroupsChosenAndKeepsThem)
{
    addMovement(incomeOf(today, cents(100), QStringLiteral("Πώληση")));
    book.execute("UPDATE kinhseis SET aa_omada=1");
    startPrinting();
    for (const auto& keys : {std::vector{Qt::Key_Tab, Qt::Key_Space, Qt::Key_Escape}, std::vector{Qt::Key_Escape}}) {
        boxes.whenShown(QStringLiteral("EpiloghOmadvn"), [&keys](QWidget& question) { pressIn(question, keys); });
        print(6);
        ASSERT_NE(shownFrame(), nullptr);
        EXPECT_EQ(documentOf(*shownFrame()).cell(1, 2), QStringLiteral("Πώληση"));
    }
}

TEST_F(ReportQuestions, theAnalysisAsksOnlyOnACashDay)
{
    addMovement(incomeOf(today, cents(100)));
    addCashDay(today, cents(100));
    startPrinting();
    print(8);
    EXPECT_EQ(documentOf(*shownFrame()).paragraphs().front().text(),
        QStringLiteral("Δεν υπάρχει ταμείο για την ημερομηνία 01-03-2024   Κεντρικό"));
    user().enter(periodStart, QStringLiteral("15-03-2024"));
    for (const bool stores : {true, false}) {
        boxes.whenShown(QStringLiteral("AnalyshFRM"), [stores](QWidget& screen) {
            const Driver there(screen);
            if (!stores) {
                screen.close();
                return;
            }
            there.click(there.find(QStringLiteral("Command2(0)")));
            for (const auto& [key, text] :
                {std::pair(Qt::Key_1, QStringLiteral("1")), std::pair(Qt::Key_Return, QString())})
                QTest::sendKeyEvent(
                    QTest::Click, QApplication::activePopupWidget()->windowHandle(), key, text, Qt::NoModifier);
            there.click(there.find(QStringLiteral("Command1")));
        });
        print(8);
        EXPECT_EQ(documentOf(*shownFrame()).cell(1, 3), QStringLiteral("1,00")) << "the code that was chosen";
        const QString paper = book.path(QStringLiteral("paper.pdf"));
        ASSERT_EQ(savePdf(*viewOf(*shownFrame()).pages(), paper, [](int, int) { return true; }), PageOutcome::Done);
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), paper, QStringLiteral("-")});
        reader.waitForFinished();
        EXPECT_TRUE(QString::fromUtf8(reader.readAll()).simplified().contains(QStringLiteral("Ομαδα 1 1,00 Ομαδα 2")));
    }
}

TEST_F(ReportQuestions, withoutCodesOrGroupsThereIsNothingToPrint)
{
    book.execute("DELETE FROM kvdikoi; DELETE FROM omades");
    startPrinting();
    boxes.whenShown(QStringLiteral("Ervthsh"), [](QWidget& question) { pressIn(question, {Qt::Key_Return}); });
    boxes.expect(stop(attention, QStringLiteral("Δεν υπάρχουν κωδικοί για την εκτύπωση")));
    print(4);
    EXPECT_EQ(shownFrame(), nullptr);
    boxes.expect(stop(attention, QStringLiteral("Δεν υπάρχουν ομάδες για την εκτύπωση")));
    print(5);
    EXPECT_EQ(shownFrame(), nullptr);
}

TEST_F(ReportRunning, aFailureLeavesNoFrame)
{
    startPrinting();
    print(3);
    EXPECT_NE(shownFrame(), nullptr);
    book.execute("DROP TABLE tameio");
    boxes.expect(partly(warning(attention, QStringLiteral("tameio"))));
    print(3);
    EXPECT_EQ(shownFrame(), nullptr);
}

TEST_F(ReportRunning, isGivenUpWhileItWaits)
{
    startPrinting();
    LockedBook lock(book);
    boxes.whenShown(QStringLiteral("progress"), [this, &lock](QWidget& progress) {
        user().command(printReport).click(); // the main window takes no second request
        Driver(progress).press(Qt::Key_Escape);
        lock.release();
    });
    print(3);
    EXPECT_EQ(shownFrame(), nullptr);
    print(3);
    EXPECT_NE(shownFrame(), nullptr);
}

TEST_F(ReportRunning, closingTheProgramEndsIt)
{
    startPrinting();
    LockedBook lock(book);
    boxes.whenShown(QStringLiteral("progress"), [this, &lock](QWidget&) {
        window().close();
        lock.release();
    });
    print(3);
    EXPECT_EQ(shownFrame(), nullptr);
    EXPECT_EQ(markerBytes().left(1), "0");
}

TEST_F(ReportAtTheEnd, theProgramEndsWhileAReportIsBuilt)
{
    const NoPrinters noPrinters;
    EXPECT_TRUE(endsIn([this] {
        startToSignIn();
        signInAsSofia();
        auto& window = *shownWindow(QStringLiteral("kentrikh"));
        const Driver user(window);
        user.find<QTabBar>(QStringLiteral("Tab1")).setCurrentIndex(2);
        user.clickRow(user.find<QListView>(QStringLiteral("List2(0)")), 2);
        LockedBook lock(book);
        boxes.whenShown(QStringLiteral("progress"), [this, &lock](QWidget&) {
            program->end();
            lock.release();
        });
        user.click(user.command(1));
        EXPECT_EQ(shownFrame(), nullptr);
    }));
}

} // namespace lorvan::test
