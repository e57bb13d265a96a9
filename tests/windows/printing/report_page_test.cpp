#include "controls/entry_field.h"
#include "look/busy_pointer.h"
#include "printing/report_desk.h"
#include "report_pdf.h"
#include "reports/key_sheet.h"
#include "windows/preview/printing_test.h"
#include "windows/program_run.h"

#include <QAction>
#include <QMenu>
#include <QSemaphore>

namespace lorvan::test {
namespace {

class PrintingPageTest : public PrintingTest { };
class ReportQuestions : public PrintingTest { };
class ReportRunning : public PrintingTest { };
class ReportAtTheEnd : public ProgramTest { };

const QString attention = "Προσοχή";

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

/// The first cells of the rows that have one, in brackets.
QString firstCells(const ReportDocument& document)
{
    QString cells;
    for (int row = 1; !document.cell(row, 1).isEmpty(); ++row)
        cells += u'[' + document.cell(row, 1) + u']';
    return cells;
}

} // namespace

TEST_F(PrintingPageTest, checksTheChoiceThenThePeriod)
{
    const ExpectedBox noReport = information(attention, "Δεν έχετε επιλέξει την εκτύπωση");
    const ExpectedBox noDate = information("Προσοχ'η στην ημερομηνία", "Η ημερομηνία είναι λάθος");
    const struct {
        int report;
        int badField;
        ExpectedBox box;
    } cases[] = {{0, periodStart, noReport}, {1, periodStart, noDate}, {1, periodEnd, noDate}};
    for (const auto& each : cases) {
        startPrinting();
        if (each.report > 0)
            user().clickRow(reports(), each.report - 1);
        user().enter(each.badField, "31-02-2024");
        boxes.expect(each.box);
        press(printReport);
        QTest::qWait(30); // a second box would come now
        EXPECT_EQ(shownFrame(), nullptr);
    }
}

TEST_F(PrintingPageTest, digitsChooseAndWhatDoesNotCountIsQuiet)
{
    startPrinting();
    const QString both = "", none = "Η περίοδος δεν μετρά.";
    const QString first = "Μετρά μόνο η πρώτη ημερομηνία.", second = "Μετρά μόνο η δεύτερη ημερομηνία.";
    const QStringList hints{second, none, both, both, both, both, both, first, both};
    for (int report = 1; report <= hints.size(); ++report) {
        const QString& hint = hints[report - 1];
        user().goTo(reports());
        QTest::keyClick(&reports(), static_cast<Qt::Key>(Qt::Key_0 + report));
        EXPECT_EQ(reports().selectionModel()->selectedIndexes().value(0).row(), report - 1);
        EXPECT_EQ(user().text("periodHint"), hint) << report;
        for (const int index : {periodStart, periodEnd}) {
            const auto& field = dynamic_cast<EntryField&>(user().field(index));
            EXPECT_EQ(field.isQuiet(), hint != both && hint != (index == periodStart ? first : second)) << report;
            EXPECT_EQ(field.isQuiet(), !field.accessibleDescription().isEmpty()) << report;
            EXPECT_TRUE(field.isEnabled() && !field.isReadOnly());
        }
    }
    user().press(Qt::Key_Return);
    EXPECT_EQ(user().focusName(), "Text1(7)");
}

TEST_F(PrintingPageTest, usualPeriodsAreChosenWithoutAMouse)
{
    startPrinting();
    user().goTo(user().field(periodEnd));
    user().press(Qt::Key_Return);
    EXPECT_EQ(user().focusName(), "Command1(1)") << "Enter goes on from the dates to the report";
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), "periods");
    user().press(Qt::Key_Return);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(menu, key);
    EXPECT_EQ(user().field(periodStart).text(), "01-02-2024");
    EXPECT_EQ(user().field(periodEnd).text(), "29-02-2024");
}

TEST_F(PrintingPageTest, showsTheReportAndStaysUsable)
{
    addMovement(incomeOf(today, cents(12345), "Πώληση"));
    startPrinting();
    user().enter(periodEnd, "15/3");
    print(1);
    ASSERT_NE(shownFrame(), nullptr);
    EXPECT_TRUE(shownFrame()->windowTitle().startsWith(" Ταμείο ημέρας"));
    EXPECT_EQ(document().header(), "Τ α μ ε ί ο  Η μ έ ρ α ς   15-03-2024  Κεντρικό");
    EXPECT_EQ(document().cell(1, 2), "Πώληση");
    selectTab(CashTab);
    EXPECT_TRUE(movementLine(1).contains("Πώληση"));

    selectTab(PrintingTab);
    user().clickRow(reports(), 2);
    user().press(Qt::Key_F2);
    EXPECT_TRUE(shownFrame()->windowTitle().startsWith(" Συνοπτικό ταμείο από ... εως"));
    window().close();
    EXPECT_EQ(shownFrame(), nullptr);
}

TEST_F(PrintingPageTest, printsTheChosenGroupAndListsWhatItLeavesOut)
{
    for (const char* const words : {"Όμοια", "Όμοια", "Άλλη"})
        addMovement(incomeOf(today, cents(100), words));
    book.execute("UPDATE omades SET perigrafh='Έσοδα' WHERE aa=1;"
                 "UPDATE kvdikoi SET aa_omadas=1, omada='Έσοδα' WHERE kvdikos=100;"
                 "UPDATE kvdikoi SET aa_omadas=2, omada='Έξοδα' WHERE kvdikos=200;"
                 "UPDATE kinhseis SET aa_omada=CASE perigrafh WHEN 'Άλλη' THEN 2 ELSE 1 END");
    startPrinting();
    user().clickRow(list("List2(2)"), 0);
    print(5);
    ASSERT_NE(shownFrame(), nullptr);
    EXPECT_EQ(document().cell(1, 1) + document().cell(1, 4) + document().cell(3, 5), "ΈσοδαΌμοια1,00");
    EXPECT_EQ(document().cell(2, 4), "Υποσύνολο") << "a row once, and no other group";

    const Driver preview(*shownFrame());
    ASSERT_TRUE(comesTrue([&] { return preview.find("omissions").isVisible(); }));
    boxes.whenShown("omissionList", [](QWidget& shown) {
        EXPECT_EQ(linesOf(Driver(shown).find<QListView>("concerned")).simplified(),
            "15-03-2024 100 1,00 0 0 Όμοια (2 φορές)");
        pressIn(shown, {Qt::Key_Escape});
    });
    preview.type("\t\n");
    EXPECT_TRUE(shownFrame()->isVisible());
}

TEST_F(PrintingPageTest, printsTheDaysThatAreNotClosed)
{
    for (const int day : {1, 13, 15})
        book.close(QDate(2024, 3, day));
    startPrinting();
    user().enter(periodStart, "12/3");
    print(9);
    EXPECT_EQ(firstCells(document()), "[12-03-2024][14-03-2024]");
}

TEST_F(ReportQuestions, detailedOrSummaryWithoutOneChosenFirst)
{
    using Keys = std::vector<Qt::Key>;
    const QString detailed = "Εκτύπωση επιταγών από ", summary = "Εκτύπωση επιταγών συνοπτικά από ";
    startPrinting();
    for (const auto& [keys, header] : {std::pair(Keys{Qt::Key_Space, Qt::Key_Return}, detailed),
             std::pair(Keys{Qt::Key_Down, Qt::Key_Return}, summary), std::pair(Keys{Qt::Key_Escape}, detailed)}) {
        boxes.whenShown("Ervthsh", [&keys = keys](QWidget& question) {
            EXPECT_EQ(shownFrame(), nullptr) << "the frame before is gone";
            for (const char* const option : {"Option1(0)", "Option1(1)"})
                EXPECT_FALSE(question.findChild<QAbstractButton*>(option)->isChecked());
            pressIn(question, keys);
        });
        print(7);
        EXPECT_TRUE(document().header().startsWith(header));
    }
}

TEST_F(ReportQuestions, codesAreSortedAndChosenAnewEachTime)
{
    book.addCode(50, "Ψ", true, 1, false);
    book.execute("UPDATE kvdikoi SET omada=CASE kvdikos WHEN 200 THEN 'α' ELSE 'Β' END");
    startPrinting();
    answer("FormaTajinomhshs", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return});
    print(2);
    EXPECT_EQ(firstCells(document()), "[200][100]");
    answer("FormaTajinomhshs", {Qt::Key_Return});
    print(2);
    EXPECT_EQ(firstCells(document()), "[50][100][200]");
}

TEST_F(ReportQuestions, aReportOnChosenCodesTakesTheSummaryWhereNothingIsChosen)
{
    addMovement(incomeOf(today, cents(100)));
    addMovement(expenseOf(today, cents(30)));
    startPrinting();
    answer("Ervthsh", {Qt::Key_Escape});
    print(4);
    EXPECT_EQ(document().cell(2, 1), "  200 Προμήθειες");
    user().clickRow(list("List2(1)"), 1);
    answer("Ervthsh", {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
    print(4);
    EXPECT_EQ(document().cell(1, 1), "200 Προμήθειες");
    EXPECT_EQ(document().cell(2, 3), "Υποσύνολο");
}

TEST_F(ReportQuestions, theCardHasTheGroupsChosenAndKeepsThem)
{
    addMovement(incomeOf(today, cents(100), "Πώληση"));
    book.execute("UPDATE kinhseis SET aa_omada=1");
    startPrinting();
    for (const auto& keys : {std::vector{Qt::Key_Tab, Qt::Key_Space, Qt::Key_Escape}, std::vector{Qt::Key_Escape}}) {
        answer("EpiloghOmadvn", keys);
        print(6);
        EXPECT_EQ(document().cell(1, 2), "Πώληση");
    }
}

TEST_F(ReportQuestions, theAnalysisAsksOnlyOnACashDay)
{
    addMovement(incomeOf(today, cents(100)));
    addCashDay(today, cents(100));
    startPrinting();
    print(8);
    EXPECT_EQ(document().paragraphs().front().text(), u"Δεν υπάρχει ταμείο για την ημερομηνία 01-03-2024   Κεντρικό");
    user().enter(periodStart, "15-03-2024");
    for (const bool stores : {true, false}) {
        boxes.whenShown("AnalyshFRM", [stores](QWidget& screen) {
            const Driver there(screen);
            if (!stores) {
                screen.close();
                return;
            }
            there.click(there.find("Command2(0)"));
            QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_1);
            QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Return);
            there.click(there.find("Command1"));
        });
        print(8);
        EXPECT_EQ(document().cell(1, 3), "1,00") << "the code that was chosen";
        const QString paper = book.path("paper.pdf");
        ASSERT_EQ(savePdf(*viewOf(*shownFrame()).pages(), paper, [](int, int) { return true; }), PageOutcome::Done);
        const QString text = QString::fromUtf8(outputOf("pdftotext", {"-layout", paper, "-"}));
        EXPECT_TRUE(text.simplified().contains("Ομαδα 1 1,00 Ομαδα 2"));
    }
}

TEST_F(ReportQuestions, withoutCodesOrGroupsThereIsNothingToPrint)
{
    book.execute("DELETE FROM kvdikoi; DELETE FROM omades");
    startPrinting();
    answer("Ervthsh", {Qt::Key_Return});
    boxes.expect(stop(attention, "Δεν υπάρχουν κωδικοί για την εκτύπωση"));
    boxes.expect(stop(attention, "Δεν υπάρχουν ομάδες για την εκτύπωση"));
    for (const int report : {4, 5}) {
        print(report);
        EXPECT_EQ(shownFrame(), nullptr);
    }
}

TEST_F(ReportRunning, aFailureLeavesNoFrame)
{
    startPrinting();
    print(3);
    EXPECT_NE(shownFrame(), nullptr);
    book.execute("DROP TABLE tameio");
    boxes.expect(warningWith("tameio"));
    print(3);
    EXPECT_EQ(shownFrame(), nullptr);
}

TEST_F(ReportRunning, isGivenUpWhileItWaits)
{
    startPrinting();
    LockedBook lock(book);
    boxes.whenShown("progress", [this, &lock](QWidget& progress) {
        user().command(printReport).click(); // the main window takes no second request
        Driver(progress).press(Qt::Key_Escape);
        lock.release();
    });
    print(3);
    EXPECT_EQ(shownFrame(), nullptr);
    print(3);
    EXPECT_NE(shownFrame(), nullptr);
}

TEST_F(ReportRunning, theFirstPageIsReadWhileTheRestIsBuilt)
{
    enum class End { Whole, GivenUp, Failed };
    start(allRights);
    for (const auto& [isLate, end] :
        {std::pair(false, End::Whole), {true, End::Whole}, {false, End::GivenUp}, {true, End::Failed}}) {
        ReportDesk desk(book.files(), testKeys());
        QSemaphore begins(isLate ? 0 : 1);
        QSemaphore goesOn;
        const auto build = [&](const BookFiles&, KeyRing&, const ReportProgress& progress) {
            begins.acquire();
            progress.begun(keySheet("αρχή"));
            goesOn.acquire();
            if (end == End::Failed)
                throw std::runtime_error("απέτυχε");
            return keySheet("όλη");
        };
        const auto look = [&](QWidget& progress) {
            EXPECT_TRUE(viewOf(*shownFrame()).pages()->textOf(0).contains("αρχή"));
            EXPECT_EQ(Driver(*shownFrame()).text("pageCount"), "/ 1+");
            shownFrame()->findChild<QAction*>("menu(15)")->trigger(); // or a box would tell that there is no printer
            if (end == End::GivenUp)
                Driver(progress).press(Qt::Key_Escape);
            goesOn.release();
        };
        boxes.whenShown("progress", [&](QWidget& progress) {
            if (!isLate)
                return look(progress);
            boxes.whenShown("progress", look);
            begins.release();
        });
        const auto print = [&] {
            const BusyPointer busy;
            desk.print(DocumentRequest{"", "", build}, &window());
        };
        if (end == End::Failed)
            EXPECT_THROW(print(), std::runtime_error);
        else
            print();
        ASSERT_EQ(shownFrame() != nullptr, end == End::Whole);
        if (shownFrame() != nullptr) {
            EXPECT_TRUE(document().header().contains("όλη"));
        }
    }
}

TEST_F(ReportRunning, closingTheProgramEndsIt)
{
    startPrinting();
    LockedBook lock(book);
    boxes.whenShown("progress", [this, &lock](QWidget&) {
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
        const Driver there(*mainWindow());
        there.find<QTabBar>("Tab1").setCurrentIndex(2);
        there.clickRow(there.find<QListView>("List2(0)"), 2);
        LockedBook lock(book);
        boxes.whenShown("progress", [this, &lock](QWidget&) {
            program->end();
            lock.release();
        });
        there.click(there.command(1));
        EXPECT_EQ(shownFrame(), nullptr);
    }));
}

} // namespace lorvan::test
