#include "windows/preview/printing_test.h"

#include <QDialog>

namespace lorvan::test {
namespace {

class OriginsTest : public MainWindowTest {
protected:
    OriginsTest()
    {
        addMovement(incomeOf(yesterday, cents(100), "ΠΡΩΤΗ"));
        addMovement(incomeOf(yesterday, cents(200), "ΔΕΥΤΕΡΗ"));
        addMovement(incomeOf(today, cents(300), "ΣΗΜΕΡΑ"));
    }
    void show(QDate day, qint64 key)
    {
        from.show();
        window().showMovement(day, key, &from);
    }
    [[nodiscard]] QString selectedLine() const { return list().currentIndex().data().toString().mid(11, 22).trimmed(); }

    QDialog from;
};

TEST_F(OriginsTest, aMovementIsShownOnItsDayAndAltLeftLeadsBack)
{
    start(allRights);
    typeMovement("100", "τυπωμενο", "");
    show(yesterday, 1);
    EXPECT_FALSE(from.isVisible());
    EXPECT_EQ(user().field(date).text(), "14-03-2024");
    EXPECT_EQ(selectedLine(), "ΠΡΩΤΗ");
    EXPECT_EQ(user().focusName(), "List1");
    EXPECT_FALSE(user().command(modify).isVisible());
    user().press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entry(), "0 | 0 | 0 | ΤΥΠΩΜΕΝΟ | 100 Λιανική");

    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(from.isVisible());
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    show(yesterday, 1);
    user().press(Qt::Key_Left, Qt::AltModifier);
    user().press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entry(), "0 | 0 | 0 | ΤΥΠΩΜΕΝΟ | 100 Λιανική") << "there and back";
    show(today, 3);
    EXPECT_EQ(selectedLine(), "ΣΗΜΕΡΑ");
    user().enter(date, "13-03-2024\n");
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(from.isVisible());
    EXPECT_EQ(user().field(date).text(), "13-03-2024"); // the user's own choice since then
    from.hide();
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(from.isVisible());
}

TEST_F(OriginsTest, aLoadedMovementStaysAndWhatIsGoneIsSaid)
{
    start(allRights);
    user().doubleClickRow(list(), 1);
    boxes.expect(information("Προσοχή", "Μια κίνηση είναι ανοικτή για μεταβολή ή διαγραφή. Τελειώστε πρώτα με αυτή."));
    show(yesterday, 1);
    EXPECT_TRUE(from.isVisible());
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    user().press(Qt::Key_Escape);
    boxes.expect(information("Προσοχή", "Η κίνηση δεν υπάρχει πια."));
    show(yesterday, 99);
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(user().field(date).text(), "14-03-2024");

    book.close(yesterday);
    selectTab(CodesTab);
    start(noRights);
    boxes.expect(dayIsClosed());
    show(yesterday, 2);
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(selectedLine(), "ΔΕΥΤΕΡΗ");
}

TEST_F(OriginsTest, aLineOfAReportLeadsToItsMovementAndTheReportComesBack)
{
    start(allRights);
    user().press(Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(comesTrue([] { return shownFrame() != nullptr; }));
    Ektypvsh* const report = shownFrame();
    Driver(*report).press(Qt::Key_F1, Qt::ShiftModifier);
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto isPreview = [](const QWidget* window) {
        return qobject_cast<const Ektypvsh*>(window) && window->isVisible();
    };
    ASSERT_EQ(std::count_if(windows.begin(), windows.end(), isPreview), 2)
        << "the sheet of keys takes no report's place";
    const auto follow = [&](const RowSubject& subject) { Q_EMIT viewOf(*report).followed(subject); };
    boxes.expect(information("Προσοχή", "Η κίνηση δεν υπάρχει πια."));
    follow({RowSubject::Kind::Movement, 99});
    follow({RowSubject::Kind::Movement, 1});
    EXPECT_FALSE(report->isVisible());
    EXPECT_EQ(selectedLine(), "ΠΡΩΤΗ");
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(report->isVisible());
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    selectTab(PrintingTab);
    follow({RowSubject::Kind::Day, 20240314});
    EXPECT_EQ(user().field(date).text(), "14-03-2024");
    EXPECT_EQ(tabs().currentIndex(), CashTab);
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(tabs().currentIndex(), PrintingTab);
    follow({RowSubject::Kind::Day, 20240314});
    report->unload();
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(report->isVisible()) << "closed for good";
    follow({RowSubject::Kind::Code, 100});
    EXPECT_TRUE(user().find("card").isVisible());
}

} // namespace
} // namespace lorvan::test
