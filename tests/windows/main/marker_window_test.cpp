#include "platform/files/file_calls.h"
#include "windows/main_window_test.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <cerrno>

namespace lorvan::test {
namespace {

class MarkerWindowTest : public MainWindowTest {
protected:
    enum Tab { CashBook, Codes, Printing, Exit };

    static QString heldText() { return QStringLiteral("Η βάση χρησιμοποιήτε από τον (την) Ελένη στον Η/Υ γραφείο"); }
    static QString heldCaption() { return QStringLiteral("Lorvan  -  ") + heldText(); }

    [[nodiscard]] QString notice() const { return user().text(QStringLiteral("notices")); }
    [[nodiscard]] int selectedTab() const { return user().find<QTabBar>(QStringLiteral("Tab1")).currentIndex(); }
    [[nodiscard]] char markerState() const { return markerBytes().front(); }
};

ExpectedBox exitQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, QStringLiteral("Εξοδος από το πρόγραμμα"),
        QStringLiteral("Να τερματιστεί το πρόγραμμα;"), answer);
}

} // namespace

TEST_F(MarkerWindowTest, anotherHolderIsNamedAndNothingIsWritten)
{
    addMovement(incomeOf(today, cents(500), QStringLiteral("Α")));
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    const QByteArray held = markerBytes();
    start(allRights);
    EXPECT_EQ(window().windowTitle(), heldCaption());
    EXPECT_EQ(shownFigures(), QStringLiteral("5,00 | 0 | 5,00"));

    user().doubleClickRow(list(), 1);
    for (const int button : {insert, modify, remove, closeCash}) {
        boxes.expect(information(QStringLiteral("Αδύνατη η πρόσβαση"), heldText()));
        user().click(user().command(button));
        EXPECT_TRUE(boxes.allSeen()) << button;
    }
    EXPECT_EQ(entry(), QStringLiteral("5,00 | 0 | 0 | Α | 100 Λιανική"));
    EXPECT_EQ(cashDays(), CashDayLines{}) << "the day view writes nothing";
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("1"));
    window().close();
    EXPECT_EQ(markerBytes(), held);
}

TEST_F(MarkerWindowTest, printingGivesTheMarkerUpAndTheCashBookTakesItBack)
{
    start();
    EXPECT_EQ(markerState(), '1');
    selectTab(Printing);
    EXPECT_EQ(markerState(), '0');
    selectTab(CashBook);
    EXPECT_EQ(markerState(), '1');
    user().press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selectedTab(), Codes);
    EXPECT_EQ(markerState(), '1');
    user().press(Qt::Key_PageDown, Qt::ControlModifier);
    user().press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selectedTab(), Printing) << "the keys stop before the exit";
    EXPECT_EQ(markerState(), '0');

    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    selectTab(CashBook);
    EXPECT_EQ(window().windowTitle(), heldCaption());
    other.release();
    selectTab(Codes);
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Lorvan"));
    EXPECT_EQ(markerState(), '1');
}

TEST_F(MarkerWindowTest, aChangeClaimsAMarkerThatHasBecomeFree)
{
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    start();
    other.release();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("1"));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Lorvan"));
    EXPECT_FALSE(other.claim());
}

TEST_F(MarkerWindowTest, theHolderComesIntoTheLineAndGoesByItself)
{
    constexpr int patience = 10'000;
    const auto isTold = [this] { return notice().contains(QStringLiteral("Ελένη στον υπολογιστή γραφείο")); };
    start();
    EXPECT_EQ(notice(), QString());
    selectTab(Printing);
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    EXPECT_TRUE(QTest::qWaitFor(isTold, patience));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Lorvan")) << "until the next tab";
    other.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return notice().isEmpty(); }, patience));
    ASSERT_TRUE(other.claim());
    selectTab(CashBook);
    EXPECT_TRUE(isTold()) << "at once";
}

TEST_F(MarkerWindowTest, cancelledExitGoesBackAndRunsNothingAgain)
{
    start();
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    selectTab(Exit);
    EXPECT_EQ(selectedTab(), CashBook);
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    user().click(user().command(4));
    EXPECT_TRUE(boxes.allSeen() && window().isVisible());

    selectTab(Printing);
    EXPECT_EQ(user().field(7).text(), QStringLiteral("01-03-2024"));
    EXPECT_EQ(user().field(8).text(), QStringLiteral("15-03-2024"));
    user().enter(7, QStringLiteral("5/1/2024"));
    user().clickRow(user().find<QListView>(QStringLiteral("List2(1)")), 1);
    boxes.expect(exitQuestion(QMessageBox::Cancel));
    selectTab(Exit);
    EXPECT_EQ(selectedTab(), Printing);
    EXPECT_TRUE(user().find(QStringLiteral("Panel1(3)")).isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return user().field(7).text() == QStringLiteral("05-01-2024"); }));
    EXPECT_TRUE(user().find<QListView>(QStringLiteral("List2(1)")).selectionModel()->hasSelection());
}

TEST_F(MarkerWindowTest, anEntryThatWouldBeLostIsAskedAboutButForTheSessionsEnd)
{
    const ExpectedBox question =
        withDetails(exitQuestion(QMessageBox::Cancel), QStringLiteral("Υπάρχει κίνηση που δεν έχει εισαχθεί."));
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    const QString typed = entry();
    boxes.expect(question);
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(QTest::qWaitFor([this] { return boxes.allSeen(); }));
    boxes.expect(question);
    selectTab(Exit);
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
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    const QString typed = entry();
    selectTab(Printing);
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    addMovement(incomeOf(today, cents(100)));
    const CashDayLines before = cashDays();
    selectTab(CashBook);
    EXPECT_EQ(shownFigures(), QStringLiteral("6,00 | 0 | 6,00"));
    EXPECT_EQ(entry(), typed);
    EXPECT_EQ(cashDays(), before) << "the day's row is the other's business";
}

TEST_F(MarkerWindowTest, confirmedExitEndsOnceAndFreesTheMarker)
{
    for (const bool fromTab : {true, false}) {
        start();
        QSignalSpy closed(&window(), &Kentrikh::closed);
        boxes.expect(exitQuestion(QMessageBox::Ok));
        if (fromTab)
            selectTab(Exit);
        else
            user().click(user().command(4));
        EXPECT_EQ(closed.count(), 1);
        EXPECT_FALSE(window().isVisible());
        EXPECT_EQ(markerState(), '0');
    }
}

TEST_F(MarkerWindowTest, anUnusableMarkerStillTurnsThePageAndShowsTheDay)
{
    addMovement(incomeOf(today, cents(500)));
    start();
    ASSERT_TRUE(QFile::remove(book.files().usageMarker()) && QDir().mkdir(book.files().usageMarker()));
    for (int box = 0; box < 2; ++box) // the caption, the claim
        boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("lorvan.dat"))));
    selectTab(Codes);
    EXPECT_TRUE(user().find(QStringLiteral("Panel1(2)")).isVisible());
    for (int box = 0; box < 4; ++box) // the same, and twice the day whose row is not written
        boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("lorvan.dat"))));
    selectTab(CashBook);
    user().enter(date, QStringLiteral("15-3-2024"));
    user().press(Qt::Key_Tab);
    EXPECT_EQ(list().model()->rowCount(), 2);
}

TEST_F(MarkerWindowTest, aMarkerThatCannotBeFreedIsTold)
{
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
    start();
    const NoWrites calls;
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("lorvan.dat"))));
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(boxes.allSeen());
}

TEST_F(MarkerWindowTest, whereLocksKeepNobodyOutTheBookIsLookedAtAndALineSaysWhy)
{
    class VainLocks : public FileCalls {
    public:
        VainLocks() { replace(this); }
        ~VainLocks() override { replace(nullptr); }
        int lock(int, short, off_t, off_t) override { return 0; }
    };
    addMovement(incomeOf(today, cents(500)));
    const VainLocks calls;
    start();
    EXPECT_EQ(markerState(), '0');
    EXPECT_TRUE(notice().contains(QStringLiteral("μόνο για ανάγνωση"))) << notice().toStdString();
    EXPECT_EQ(shownFigures(), QStringLiteral("5,00 | 0 | 5,00"));
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("κλειδώματα"))));
    user().click(user().command(insert));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("1"));
    window().end();
}

TEST_F(MarkerWindowTest, aTabIsNotLeftWithARefusedDate)
{
    start();
    selectTab(Printing);
    user().enter(7, QStringLiteral("32-1"));
    boxes.expect(warning(QStringLiteral("Λάθος ημερομηνία"), QStringLiteral("Η εισαγωγή της ημερομηνίας είναι λάθος")));
    selectTab(CashBook);
    EXPECT_EQ(selectedTab(), Printing);
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(7)"));
    EXPECT_EQ(markerState(), '0');
}

TEST_F(MarkerWindowTest, printingOffersTheCodesOfTheTabItIsReachedFrom)
{
    book.addCode(300, QStringLiteral("Παλιός"), true, 0, false);
    start();
    selectTab(Printing);
    auto& codes = user().find<QListView>(QStringLiteral("List2(1)"));
    EXPECT_EQ(linesOf(codes), QStringLiteral("  100 Λιανική\n  200 Προμήθειες"));
    EXPECT_EQ(codes.model()->index(1, 0).data(Qt::UserRole).toInt(), 200);
    EXPECT_EQ(linesOf(user().find<QListView>(QStringLiteral("List2(2)"))), QStringLiteral("Πωλήσεις"));
    selectTab(Codes);
    selectTab(Printing);
    EXPECT_TRUE(linesOf(codes).endsWith(QStringLiteral("\n  300 Παλιός")));
}

} // namespace lorvan::test
