#include "platform/files/file_calls.h"
#include "support/vain_locks.h"
#include "windows/main_window_test.h"

#include <QDir>
#include <QSignalSpy>

#include <cerrno>

namespace lorvan::test {
namespace {

const QString heldText = "Η βάση χρησιμοποιήτε από τον (την) Ελένη στον Η/Υ γραφείο";
const QString heldCaption = "Lorvan  -  " + heldText;

class MarkerWindowTest : public MainWindowTest {
protected:
    [[nodiscard]] char markerState() const { return markerBytes().front(); }

    UsageMarker other = otherComputer();
};

ExpectedBox exitQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, "Εξοδος από το πρόγραμμα", "Να τερματιστεί το πρόγραμμα;", answer);
}

class NoWrites : public FileCalls {
public:
    NoWrites() { replace(this); }
    ~NoWrites() override { replace(nullptr); }
    ssize_t writeAt(int, const void*, std::size_t, off_t) override
    {
        errno = EIO;
        return -1;
    }
};

} // namespace

TEST_F(MarkerWindowTest, anotherHolderIsNamedAndNothingIsWrittenUntilHeLetsGo)
{
    addMovement(incomeOf(today, cents(500), "Α"));
    ASSERT_TRUE(other.claim());
    start(allRights);
    EXPECT_EQ(window().windowTitle(), heldCaption);
    EXPECT_EQ(shownFigures(), "5,00 | 0 | 5,00");

    user().doubleClickRow(list(), 1);
    for (const int button : {insert, modify, remove, closeCash}) {
        boxes.expect(information("Αδύνατη η πρόσβαση", heldText));
        press(button);
    }
    EXPECT_EQ(entry(), "5,00 | 0 | 0 | Α | 100 Λιανική");
    EXPECT_EQ(cashDays(), CashDayLines{}) << "the day view writes nothing";
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "1");

    other.release();
    user().clickRow(list(), 0);
    typeMovement("100", "α", "5");
    press(insert);
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "2");
    EXPECT_EQ(window().windowTitle(), "Lorvan");
    EXPECT_FALSE(other.claim());
}

TEST_F(MarkerWindowTest, printingGivesTheMarkerUpAndTheCashBookTakesItBack)
{
    start();
    EXPECT_EQ(markerState(), '1');
    selectTab(PrintingTab);
    EXPECT_EQ(markerState(), '0');
    selectTab(CashTab);
    EXPECT_EQ(markerState(), '1');
    for (const auto& [tab, marker] : {std::pair(CodesTab, '1'), std::pair(PrintingTab, '0'),
             std::pair(PrintingTab, '0')}) { // the keys stop before the exit
        user().press(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(tabs().currentIndex(), tab);
        EXPECT_EQ(markerState(), marker);
    }
    ASSERT_TRUE(other.claim());
    const QByteArray held = markerBytes();
    selectTab(CashTab);
    EXPECT_EQ(window().windowTitle(), heldCaption);
    EXPECT_EQ(markerBytes(), held);
    other.release();
    selectTab(CodesTab);
    EXPECT_EQ(window().windowTitle(), "Lorvan");
    EXPECT_EQ(markerState(), '1');
}

TEST_F(MarkerWindowTest, theHolderComesIntoTheLineAndGoesByItself)
{
    const auto isTold = [this] { return notice().contains("Ελένη στον υπολογιστή γραφείο"); };
    start();
    EXPECT_EQ(notice(), "");
    selectTab(PrintingTab);
    ASSERT_TRUE(other.claim());
    EXPECT_TRUE(comesTrue(isTold));
    EXPECT_EQ(window().windowTitle(), "Lorvan") << "until the next tab";
    other.release();
    EXPECT_TRUE(comesTrue([this] { return notice().isEmpty(); }));
    ASSERT_TRUE(other.claim());
    selectTab(CashTab);
    EXPECT_TRUE(isTold()) << "at once";
}

TEST_F(MarkerWindowTest, cancelledExitGoesBackAndRunsNothingAgain)
{
    start();
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    selectTab(ExitTab);
    EXPECT_EQ(tabs().currentIndex(), CashTab);
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    press(4);
    EXPECT_TRUE(window().isVisible());

    selectTab(PrintingTab);
    EXPECT_EQ(user().field(7).text(), "01-03-2024");
    EXPECT_EQ(user().field(8).text(), "15-03-2024");
    user().enter(7, "5/1/2024");
    user().clickRow(list("List2(1)"), 1);
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    selectTab(ExitTab);
    EXPECT_EQ(tabs().currentIndex(), PrintingTab);
    EXPECT_TRUE(user().find("Panel1(3)").isVisible());
    EXPECT_TRUE(comesTrue([this] { return user().field(7).text() == "05-01-2024"; }));
    EXPECT_TRUE(list("List2(1)").selectionModel()->hasSelection());
}

TEST_F(MarkerWindowTest, anEntryThatWouldBeLostIsAskedAboutButForTheSessionsEnd)
{
    const ExpectedBox question =
        withDetails(exitQuestion(QMessageBox::Cancel), "Υπάρχει κίνηση που δεν έχει εισαχθεί.");
    start();
    typeMovement("100", "α", "5");
    const QString typed = entry();
    boxes.expect(question);
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(comesTrue([this] { return boxes.allSeen(); }));
    boxes.expect(question);
    selectTab(ExitTab);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(entry(), typed);
    QTimer::singleShot(0, qApp, [] {
        QEvent sessionEnds(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &sessionEnds);
    });
    QApplication::exec();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(markerState(), '0');
}

TEST_F(MarkerWindowTest, aReturnFromPrintingShowsWhatAnotherHasWritten)
{
    addMovement(incomeOf(today, cents(500)));
    start();
    typeMovement("100", "α", "5");
    const QString typed = entry();
    selectTab(PrintingTab);
    ASSERT_TRUE(other.claim());
    addMovement(incomeOf(today, cents(100)));
    const CashDayLines before = cashDays();
    selectTab(CashTab);
    EXPECT_EQ(shownFigures(), "6,00 | 0 | 6,00");
    EXPECT_EQ(entry(), typed);
    EXPECT_EQ(cashDays(), before) << "the day's row is the other's business";
}

TEST_F(MarkerWindowTest, confirmedExitEndsOnceAndFreesTheMarker)
{
    for (const bool fromTab : {true, false}) {
        start();
        QSignalSpy closed(&window(), &Kentrikh::closed);
        boxes.expect(exitQuestion(QMessageBox::Ok));
        fromTab ? selectTab(ExitTab) : press(4);
        EXPECT_EQ(closed.count(), 1);
        EXPECT_FALSE(window().isVisible());
        EXPECT_EQ(markerState(), '0');
    }
}

TEST_F(MarkerWindowTest, anUnusableMarkerIsToldStillTurnsThePageAndShowsTheDay)
{
    addMovement(incomeOf(today, cents(500)));
    start();
    {
        const NoWrites calls;
        boxes.expect(warningWith("lorvan.dat"));
        EXPECT_TRUE(window().close());
    }
    start();
    ASSERT_TRUE(QFile::remove(book.files().usageMarker()) && QDir().mkdir(book.files().usageMarker()));
    for (int box = 0; box < 2; ++box) // the caption, the claim
        boxes.expect(warningWith("lorvan.dat"));
    selectTab(CodesTab);
    EXPECT_TRUE(user().find("Panel1(2)").isVisible());
    for (int box = 0; box < 4; ++box) // the same, and twice the day whose row is not written
        boxes.expect(warningWith("lorvan.dat"));
    selectTab(CashTab);
    user().enter(date, "15-3-2024\t");
    EXPECT_EQ(list().model()->rowCount(), 2);
}

TEST_F(MarkerWindowTest, whereLocksKeepNobodyOutTheBookIsLookedAtAndALineSaysWhy)
{
    addMovement(incomeOf(today, cents(500)));
    const VainLocks calls;
    start();
    EXPECT_EQ(markerState(), '0');
    EXPECT_TRUE(notice().contains("μόνο για ανάγνωση")) << notice();
    EXPECT_EQ(shownFigures(), "5,00 | 0 | 5,00");
    typeMovement("100", "α", "5");
    boxes.expect(warningWith("κλειδώματα"));
    press(insert);
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "1");
    window().end();
}

TEST_F(MarkerWindowTest, aTabIsNotLeftWithARefusedDate)
{
    start();
    selectTab(PrintingTab);
    user().enter(7, "32-1");
    boxes.expect(warning("Λάθος ημερομηνία", "Η εισαγωγή της ημερομηνίας είναι λάθος"));
    selectTab(CashTab);
    EXPECT_EQ(tabs().currentIndex(), PrintingTab);
    EXPECT_EQ(user().focusName(), "Text1(7)");
    EXPECT_EQ(markerState(), '0');
}

TEST_F(MarkerWindowTest, printingOffersTheCodesOfTheTabItIsReachedFrom)
{
    book.addCode(300, "Παλιός", true, 0, false);
    start();
    selectTab(PrintingTab);
    auto& codes = list("List2(1)");
    EXPECT_EQ(linesOf(codes), "  100 Λιανική\n  200 Προμήθειες");
    EXPECT_EQ(codes.model()->index(1, 0).data(Qt::UserRole).toInt(), 200);
    EXPECT_EQ(linesOf(list("List2(2)")), "Πωλήσεις");
    selectTab(CodesTab);
    selectTab(PrintingTab);
    EXPECT_TRUE(linesOf(codes).endsWith("\n  300 Παλιός"));
}

} // namespace lorvan::test
