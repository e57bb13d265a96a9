#include "controls/suggesting_field.h"
#include "windows/main_window_test.h"

#include <QPlainTextEdit>

namespace lorvan::test {
namespace {

class KeysTest : public MainWindowTest {
protected:
    KeysTest()
    {
        addMovement(incomeOf({2024, 2, 1}, cents(100), "ΠΑΛΙΑ"));
        addMovement(incomeOf(yesterday, cents(200), "ΧΘΕΣ"));
        addCashDay({2024, 2, 1}, cents(100));
        addCashDay(yesterday, cents(300));
    }
    void expectDay(const char* day, const char* focus, const char* why) const
    {
        EXPECT_EQ(user().field(date).text(), day) << why;
        EXPECT_EQ(user().focusName(), focus) << why;
    }
};

} // namespace

TEST_F(KeysTest, pagesLeadFromDayToDay)
{
    constexpr auto shift = Qt::ShiftModifier, alt = Qt::AltModifier, ctrl = Qt::ControlModifier;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* day;
        const char* focus;
    } cases[] = {{Qt::Key_PageUp, {}, "14-03-2024", "DBCombo1"}, {Qt::Key_PageUp, {}, "01-02-2024", "DBCombo1"},
        {Qt::Key_PageUp, {}, "01-02-2024", "DBCombo1"}, {Qt::Key_PageDown, alt, "02-02-2024", "DBCombo1"},
        {Qt::Key_PageDown, shift, "02-03-2024", "DBCombo1"}, {Qt::Key_Home, alt, "15-03-2024", "DBCombo1"},
        {Qt::Key_Up, {}, "15-03-2024", "List1"}, {Qt::Key_Up, ctrl, "14-03-2024", "List1"},
        {Qt::Key_Down, ctrl, "15-03-2024", "List1"}};
    start();
    for (const auto& each : cases) {
        user().press(each.key, each.modifiers);
        expectDay(each.day, each.focus, each.day);
    }
    user().enter(date, "3-2");
    user().press(Qt::Key_PageUp);
    expectDay("01-02-2024", "DBCombo1", "from the day that is being typed");
    user().enter(date, "31-2");
    boxes.expect(warning("Λάθος ημερομηνία", "Η εισαγωγή της ημερομηνίας είναι λάθος"));
    user().press(Qt::Key_PageUp);
    expectDay("31-2", "Text1(0)", "refused");
}

TEST_F(KeysTest, anotherDayKeepsWhatWasTypedAndNothingMovesUnderALoadedMovement)
{
    start();
    typeMovement("100", "λάδι", "5");
    const QString typed = entry();
    user().goTo(user().field(date));
    user().press(Qt::Key_PageUp);
    expectDay("14-03-2024", "Text1(0)", "the code still holds a text");
    user().press(Qt::Key_PageUp);
    EXPECT_NE(entry(), typed);
    user().press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entry(), typed);
    expectDay("01-02-2024", "DBCombo1", "brought back");

    user().doubleClickRow(list(), 1);
    user().goTo(list());
    user().press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(entry(), "1,00 | 0 | 0 | ΠΑΛΙΑ | 100 Λιανική");
}

TEST_F(KeysTest, theRightArrowTakesASuggestedDescriptionAndUndoGivesItBack)
{
    start();
    auto& words = user().find<SuggestingField>("Text1(1)");
    chooseCode("100");
    user().type("π");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words.suggestion() == "ΑΛΙΑ"; }));
    EXPECT_EQ(words.text(), "Π");
    for (const auto& [key, suggested] :
        {std::pair(Qt::Key_Left, ""), std::pair(Qt::Key_Right, "ΑΛΙΑ"), std::pair(Qt::Key_Backspace, "")}) {
        user().press(key);
        EXPECT_EQ(words.suggestion(), suggested) << key;
    }
    user().type("π");
    user().press(Qt::Key_Right);
    EXPECT_EQ(words.text(), "ΠΑΛΙΑ");
    user().press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(words.text(), "Π");
    chooseCode("200");
    user().type("π");
    QTest::qWait(50);
    EXPECT_EQ(words.suggestion(), "") << "of another code";
}

TEST_F(KeysTest, aClosedDayOnTheWayIsToldAndLeft)
{
    book.close(yesterday);
    start();
    boxes.expect(dayIsClosed());
    user().press(Qt::Key_PageUp);
    expectDay("14-03-2024", "Text1(0)", "closed");
    user().press(Qt::Key_PageUp);
    expectDay("01-02-2024", "DBCombo1", "open");
}

TEST_F(KeysTest, controlEnterStoresFromAnyFieldOrStopsWhereLeavingItWould)
{
    start();
    user().goTo(chooser());
    user().type("100\nλάδι\n5");
    user().press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(
        stored("SELECT hmeromhnia||perigrafh||esoda FROM kinhseis ORDER BY aa DESC LIMIT 1"), "20240315ΛΆΔΙ50000");
    user().type("100\nξύδι\n1,2,3");
    boxes.expect(warningWith("1,2,3"));
    user().press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(user().focusName(), "Text1(2)");
    user().type("3");
    user().enter(date, "14-3");
    user().press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(user().field(date).text(), "14-03-2024") << "another day is shown, nothing is stored";
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "3");

    user().doubleClickRow(list(), 1);
    user().type("7");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    user().press(Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(stored("SELECT esoda FROM kinhseis WHERE perigrafh='ΧΘΕΣ'"), "70000");
}

TEST_F(KeysTest, aCopyOfALineWaitsInTheEntryAndStoresNothing)
{
    constexpr auto both = Qt::ControlModifier | Qt::ShiftModifier;
    book.addCode(300, "Παλιός", true, 0, false);
    MovementDraft old = incomeOf(yesterday, cents(50), "ΑΝΕΝΕΡΓΟΣ");
    old.code = 300;
    addMovement(old);
    MovementDraft cheque = expenseOf(yesterday, cents(700), "ΜΕ ΕΠΙΤΑΓΗ");
    cheque.cheque = true;
    cheque.memorandum = cents(9);
    addMovement(cheque);
    start();
    user().press(Qt::Key_PageUp);
    typeMovement("100", "ξύδι", "3");
    const QString typed = entry();
    user().goTo(list());
    user().press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(entry(), "0 | 7,00 | 0 | ΜΕ ΕΠΙΤΑΓΗ | 200 Προμήθειες");
    EXPECT_EQ(user().focusName(), "Text1(3)");
    EXPECT_TRUE(user().find<QAbstractButton>("Check1(0)").isChecked());
    user().press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entry(), typed);

    user().goTo(list());
    user().press(Qt::Key_Up);
    user().press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(user().text("entryNotBack"), "Η κίνηση δεν αντιγράφεται: ο κωδικός 300 δεν είναι ενεργός.");
    EXPECT_EQ(entry(), typed);
    user().press(Qt::Key_Up);
    user().press(Qt::Key_D, both);
    EXPECT_EQ(entry(), "2,00 | 0 | 0 | ΧΘΕΣ | 100 Λιανική");
    expectDay("15-03-2024", "Text1(2)", "for today");
    user().press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(stored("SELECT group_concat(perigrafh) FROM kinhseis WHERE hmeromhnia=20240315"), "ΧΘΕΣ");
}

TEST_F(KeysTest, theShownDayIsPreviewedAndPrintedOnlyByAnotherPressOfTheKey)
{
    start();
    user().press(Qt::Key_PageUp);
    const QByteArray marker = markerBytes();
    QTest::sendKeyEvent(QTest::Press, window().windowHandle(), Qt::Key_P, QString(), Qt::ControlModifier);
    QWidget* preview = nullptr;
    for (QWidget* const each : QApplication::topLevelWidgets()) {
        if (each->objectName() == "Ektypvsh" && each->isVisible())
            preview = each;
    }
    ASSERT_TRUE(preview);
    waitForActive(*preview);
    EXPECT_EQ(markerBytes(), marker);
    auto& print = Driver(*preview).find<QAction>("menu(20)");
    int printed = 0;
    QObject::connect(&print, &QAction::triggered, [&printed] { ++printed; });
    boxes.expect(partly(information("Προσοχή", "")));
    QTest::qWait(30); // the first page is painted
    const auto send = [&](QTest::KeyAction action) {
        print.setEnabled(true); // as with a printer
        QTest::sendKeyEvent(action, preview->windowHandle(), Qt::Key_P, QString(), Qt::ControlModifier);
    };
    send(QTest::Press);
    EXPECT_EQ(printed, 0) << "the key is still the one that opened the preview";
    send(QTest::Release);
    send(QTest::Press);
    EXPECT_EQ(printed, 1);
}

TEST_F(KeysTest, theTapePutsItsSumIntoTheFieldOnceEveryLineIsAnAmount)
{
    start();
    typeMovement("100", "λάδι", "10");
    user().goTo(user().field(income));
    boxes.whenShown("tape", [](QWidget& window) {
        waitForActive(window);
        const Driver tape(window);
        const auto& lines = tape.find<QPlainTextEdit>("tapeLines");
        tape.press(Qt::Key_End); // the simulated key after one that opens a window is lost
        tape.type("5.5-2+x");
        EXPECT_EQ(lines.toPlainText(), "10,00\n5,5\n-2\nx");
        tape.press(Qt::Key_F3);
        EXPECT_EQ(tape.text("tapeRefusal"), "Η γραμμή 4 δεν είναι ποσό.");
        EXPECT_EQ(lines.toPlainText(), "10,00\n5,5\n-2\nx");
        EXPECT_EQ(lines.extraSelections().size(), 1);
        tape.press(Qt::Key_Delete);
        tape.press(Qt::Key_Return);
        window.close(); // whatever has happened
    });
    user().press(Qt::Key_F3);
    EXPECT_EQ(entry(), "13,50 | 0 | 0 | ΛΆΔΙ | 100 Λιανική");
    EXPECT_EQ(user().focusName(), "Text1(2)");
}

TEST_F(KeysTest, theCalendarLeadsToADayByItsKeys)
{
    start();
    user().goTo(user().field(date));
    user().press(Qt::Key_F4);
    auto& grid = user().find("monthGrid");
    EXPECT_EQ(grid.accessibleName(), "Παρασκευή 15-03-2024\nΧωρίς κινήσεις");
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_Home})
        QTest::keyClick(&grid, key);
    EXPECT_EQ(grid.accessibleName(), "Πέμπτη 01-02-2024\nΥπόλοιπο 1,00");
    QTest::keyClick(&grid, Qt::Key_Return);
    expectDay("01-02-2024", "DBCombo1", "chosen");
    EXPECT_TRUE(comesTrue([this] { return !window().findChild<QWidget*>("monthGrid"); }));
    user().doubleClickRow(list(), 1);
    EXPECT_FALSE(user().find("calendar").isEnabled());
}

} // namespace lorvan::test
