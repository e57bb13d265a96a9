#include "windows/main_window_test.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusFrame>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace lorvan::test {
namespace {

/// The codes tab on a book with the codes 100 (income, group 1), 200 and the inactive 300 of group 7.
class CodesPageTest : public MainWindowTest {
protected:
    static constexpr int code = 4, words = 5, group = 6;
    static constexpr int insertCode = 5, modifyCode = 6, removeCode = 7;

    void SetUp() override
    {
        book.addGroup(7, QStringLiteral("Έξοδα 'Α'"));
        book.addGroup(9, QStringLiteral("Άλλη"));
        book.addCode(300, QStringLiteral("Παλιός"), false, 7, false);
        book.addMovementRow(incomeOf(today, cents(100)));
        start(allRights);
        selectTab(1);
    }

    [[nodiscard]] QListView& listAt(int index) const
    {
        return user().find<QListView>(QStringLiteral("DBList1(%1)").arg(index));
    }
    [[nodiscard]] QCheckBox& check(const char* name) const { return user().find<QCheckBox>(QString::fromLatin1(name)); }
    /// Code, description, group, income and active, and whether the code is offered for a change.
    [[nodiscard]] QString fields() const
    {
        const bool offered = user().command(modifyCode).isVisible();
        EXPECT_EQ(user().command(removeCode).isVisible(), offered);
        return QStringList{user().field(code).text(), user().field(words).text(), user().field(group).text(),
            QString::number(check("SSCheck1").isChecked()) + QString::number(check("SSCheck2").isChecked()),
            offered ? QStringLiteral("offered") : QString()}
            .join(u'|');
    }
    [[nodiscard]] QString codes() const
    {
        return stored("SELECT group_concat(kvdikos||' '||perigrafh||' '||ifnull(omada,'-')||' '||aa_omadas, '; ') FROM"
                      " (SELECT * FROM kvdikoi ORDER BY kvdikos, aa)");
    }
    void press(int command) const { user().click(user().command(command)); }
    void type(const QString& number, const QString& name) const
    {
        user().enter(code, number);
        user().press(Qt::Key_Return);
        user().type(name);
    }
    void expectRefusal(const QString& text, QMessageBox::Icon icon = QMessageBox::Information)
    {
        boxes.expect({icon, QStringLiteral("Προσοχή"), text});
    }
    void expectRemovalQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(okCancel(QMessageBox::Question, QStringLiteral("Διαγραφή κωδικού"),
            QStringLiteral("Να γίνει η διαγραφή του κωδικού;"), answer));
    }

    static inline const QString unchanged =
        QStringLiteral("100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός Έξοδα 'Α' 7");
};

} // namespace

TEST_F(CodesPageTest, theTabStartsEmptyAndADoubleClickOffersWhatAClickOnlyShows)
{
    EXPECT_EQ(fields(), QStringLiteral("|||01|"));
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(4)"));
    EXPECT_EQ(linesOf(listAt(0)), QStringLiteral("  100 Λιανική\n  200 Προμήθειες\n  300 Παλιός"));
    EXPECT_EQ(linesOf(listAt(1)), QStringLiteral("Πωλήσεις\nΈξοδα 'Α'\nΆλλη"));
    EXPECT_EQ(linesOf(listAt(2)), QStringLiteral("  200 Προμήθειες")) << "the codes without a group";

    user().clickRow(listAt(0), 2);
    EXPECT_EQ(fields(), QStringLiteral("300|Παλιός|Έξοδα 'Α'|00|"));
    user().doubleClickRow(listAt(0), 0);
    EXPECT_EQ(fields(), QStringLiteral("100|Λιανική|Πωλήσεις|11|offered"));
    user().press(Qt::Key_Down);
    user().press(Qt::Key_Delete, Qt::KeypadModifier);
    EXPECT_EQ(codes(), unchanged);
    EXPECT_EQ(fields(), QStringLiteral("200|Προμήθειες||01|")) << "going to another row is a click on it";
    user().press(Qt::Key_F2);
    EXPECT_EQ(fields(), QStringLiteral("200|Προμήθειες||01|offered"));
    user().clickRow(listAt(0), 2);
    EXPECT_EQ(fields(), QStringLiteral("300|Παλιός|Έξοδα 'Α'|00|"));

    user().doubleClickRow(listAt(0), 1);
    selectTab(0);
    selectTab(1);
    EXPECT_EQ(fields(), QStringLiteral("|||01|"));
}

TEST_F(CodesPageTest, refusalsKeepWhatWasTypedAndGoToTheFieldInQuestion)
{
    struct Case {
        const char *number, *description, *group, *text, *focus;
    };
    const Case cases[] = {
        {" ", "ΝΕΟΣ", "", "Ο κωδικός και η περιγραφή είναι απαραίτητα στοιχεία", "Text1(4)"},
        {"7", " ", "", "Ο κωδικός και η περιγραφή είναι απαραίτητα στοιχεία", "Text1(5)"},
        {"7,5", "ΝΕΟΣ", "", "Ο κωδικός πρέπει να είναι ακέραιος αριθμός, από -2147483648 έως 2147483647", "Text1(4)"},
        {"300", "ΝΕΟΣ", "", "Ο κωδικός υπάρχει ήδη καταχωρημένος", "Text1(4)"},
        {"7", " ΠΑΛΙΌΣ ", "", "Η περιγραφή του κωδικού υπάρχει ήδη καταχωρημένη", "Text1(5)"},
        {"7", "ΝΕΟΣ", "X'Y", "Δεν βρέθηκε η ομάδα στη λίστα με τις ομάδες, επιλέξτε  ξανά!", "Text1(6)"},
    };
    for (const Case& each : cases) {
        const QString typedGroup = QString::fromUtf8(each.group);
        type(QString::fromUtf8(each.number), QString::fromUtf8(each.description));
        user().enter(group, typedGroup);
        if (typedGroup.isEmpty())
            user().press(Qt::Key_Delete);
        expectRefusal(
            QString::fromUtf8(each.text), typedGroup.isEmpty() ? QMessageBox::Information : QMessageBox::Critical);
        press(insertCode);
        EXPECT_EQ(fields(),
            QString::fromUtf8(each.number) + u'|' + QString::fromUtf8(each.description) + u'|' + typedGroup
                + QStringLiteral("|01|"));
        EXPECT_EQ(user().focusName(), QString::fromUtf8(each.focus)) << each.number;
    }
    EXPECT_EQ(codes(), unchanged);
}

TEST_F(CodesPageTest, anInsertedCodeJoinsTheListsAndTheChooserOfTheCashPage)
{
    type(QStringLiteral("250"), QStringLiteral("ο'νέος"));
    user().doubleClickRow(listAt(1), 1);
    EXPECT_EQ(fields(), QStringLiteral("250|Ο'ΝΈΟΣ|Έξοδα 'Α'|01|"));
    press(insertCode);
    EXPECT_EQ(codes(),
        QStringLiteral("100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 250 Ο'ΝΈΟΣ Έξοδα 'Α' 7; 300 Παλιός Έξοδα 'Α' 7"));
    EXPECT_EQ(linesOf(listAt(2)), QStringLiteral("  250 Ο'ΝΈΟΣ\n  300 Παλιός"));
    EXPECT_EQ(listAt(0).currentIndex().row(), 2);
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(4)"));
    EXPECT_EQ(user().field(code).selectedText(), QStringLiteral("250"));
    EXPECT_GE(chooser().findText(QStringLiteral("250"), Qt::MatchContains), 0);
}

TEST_F(CodesPageTest, aModificationAsksAndStoresTheCurrentGroupNumberWithTheNameThatIsShown)
{
    user().doubleClickRow(listAt(0), 0);
    user().clickRow(listAt(1), 2);
    EXPECT_EQ(fields(), QStringLiteral("100|Λιανική|Πωλήσεις|11|offered"))
        << "a click on a group changes its number alone";
    const auto ask = [this](QMessageBox::StandardButton answer) {
        boxes.expect(modifyQuestion(answer));
        press(modifyCode);
    };
    boxes.expect(withDetails(modifyQuestion(QMessageBox::Cancel),
        QStringLiteral("Ο κωδικός και 1 κίνηση θα ανήκουν στην ομάδα «Άλλη», αν και το πεδίο γράφει άλλο.")));
    press(modifyCode);
    EXPECT_EQ(codes(), unchanged);
    ask(QMessageBox::Ok);
    EXPECT_EQ(codes(), QStringLiteral("100 Λιανική Πωλήσεις 9; 200 Προμήθειες - 0; 300 Παλιός Έξοδα 'Α' 7"));
    EXPECT_EQ(stored("SELECT aa_omada FROM kinhseis"), QStringLiteral("9"));

    user().enter(code, QStringLiteral("200"));
    user().enter(words, QStringLiteral("παλιός"));
    boxes.expect(withDetails(modifyQuestion(QMessageBox::Cancel),
        QStringLiteral("Υπάρχει ήδη άλλος κωδικός 200.\nΤην ίδια περιγραφή έχει ήδη άλλος κωδικός.\n"
                       "Μένουν με τον παλιό αριθμό 100: 1 κίνηση.")));
    press(modifyCode);
    user().enter(words, QStringLiteral("ΔΙΠΛΟΣ"));
    ask(QMessageBox::Ok);
    EXPECT_EQ(codes(), QStringLiteral("200 ΔΙΠΛΟΣ Πωλήσεις 9; 200 Προμήθειες - 0; 300 Παλιός Έξοδα 'Α' 7"));
    EXPECT_EQ(stored("SELECT kvdikos||'/'||aa_omada FROM kinhseis"), QStringLiteral("100/9"));

    user().enter(code, QStringLiteral("2Χ"));
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    expectRefusal(QStringLiteral("Ο κωδικός πρέπει να είναι ακέραιος αριθμός, από -2147483648 έως 2147483647"));
    press(modifyCode);
    EXPECT_EQ(user().field(code).text(), QStringLiteral("2Χ"));
    EXPECT_TRUE(user().command(modifyCode).isVisible());
}

TEST_F(CodesPageTest, onlyAnUnusedCodeIsRemoved)
{
    user().doubleClickRow(listAt(0), 0);
    expectRefusal(QStringLiteral("Ο κωδικός χρεισιμοποιήτε στις κινήσεις του ταμείου και δεν μπορεί να διαγραφεί !"));
    press(removeCode);

    user().doubleClickRow(listAt(0), 1);
    expectRemovalQuestion(QMessageBox::Cancel);
    press(removeCode);
    EXPECT_EQ(codes(), unchanged);
    user().goTo(listAt(0));
    expectRemovalQuestion(QMessageBox::Ok);
    user().press(Qt::Key_Delete);
    EXPECT_EQ(codes(), QStringLiteral("100 Λιανική Πωλήσεις 1; 300 Παλιός Έξοδα 'Α' 7"));
    EXPECT_EQ(fields(), QStringLiteral("200|Προμήθειες||01|"));
    EXPECT_EQ(listAt(0).currentIndex().row(), 1);
    EXPECT_EQ(chooser().findText(QStringLiteral("200"), Qt::MatchContains), -1);
}

TEST_F(CodesPageTest, afterTheGroupsWereEditedTheFieldsFollowTheGroupThatTheyShow)
{
    const auto edit = [this](const std::function<void(const Driver&)>& work) {
        boxes.whenShown(QStringLiteral("OmadaKvdikvn"), [&work](QWidget& groups) {
            const Driver there(groups);
            there.doubleClickRow(there.find<QListView>(QStringLiteral("DBList1")), 1);
            work(there);
            there.click(there.command(0));
        });
        press(10);
    };
    user().doubleClickRow(listAt(0), 2);
    edit([this](const Driver& there) {
        there.goTo(there.find<QLineEdit>(QStringLiteral("Text1")));
        there.type(QStringLiteral("Νέα"));
        boxes.expect(modifyQuestion(QMessageBox::Ok));
        there.click(there.command(2));
    });
    EXPECT_EQ(fields(), QStringLiteral("300|Παλιός|Νέα|00|offered"));
    EXPECT_EQ(linesOf(listAt(1)), QStringLiteral("Πωλήσεις\nΝέα\nΆλλη"));
    edit([this](const Driver& there) {
        boxes.expect(okCancel(QMessageBox::Critical, QStringLiteral("Διαγραφή ομάδας"),
            QStringLiteral("Να γίνει η διαγραφή της ομάδας;"), QMessageBox::Ok));
        there.click(there.command(3));
    });
    EXPECT_EQ(fields(), QStringLiteral("300|Παλιός||00|offered"));
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modifyCode);
    EXPECT_EQ(codes(), QStringLiteral("100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός  0"));
}

TEST_F(CodesPageTest, aGroupThatAnotherComputerHasRenamedRefusesAnInsertionAndIsFollowedByAModification)
{
    type(QStringLiteral("7"), QStringLiteral("ΝΕΟΣ"));
    user().doubleClickRow(listAt(1), 2);
    book.execute("UPDATE omades SET perigrafh='Ξένη' WHERE aa=9");
    expectRefusal(
        QStringLiteral("Δεν βρέθηκε η ομάδα στη λίστα με τις ομάδες, επιλέξτε  ξανά!"), QMessageBox::Critical);
    press(insertCode);
    EXPECT_EQ(fields(), QStringLiteral("7|ΝΕΟΣ|Άλλη|01|"));
    EXPECT_EQ(linesOf(listAt(1)), QStringLiteral("Πωλήσεις\nΈξοδα 'Α'\nΞένη")) << "to choose again from";
    EXPECT_EQ(codes(), unchanged);

    user().doubleClickRow(listAt(0), 2);
    book.execute("UPDATE omades SET perigrafh='Νέα' WHERE aa=7; UPDATE kvdikoi SET omada='Νέα' WHERE aa_omadas=7");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modifyCode);
    EXPECT_EQ(codes(), QStringLiteral("100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός Νέα 7"));
}

TEST_F(CodesPageTest, aCodeThatAnotherComputerHasRemovedIsToldOf)
{
    book.execute("DELETE FROM kvdikoi WHERE kvdikos=200");
    expectRefusal(QStringLiteral("Ο κωδικός δεν υπάρχει πια. Τον έχει διαγράψει άλλος χρήστης."));
    user().clickRow(listAt(0), 1);
    EXPECT_EQ(linesOf(listAt(0)), QStringLiteral("  100 Λιανική\n  300 Παλιός"));
    EXPECT_FALSE(user().command(modifyCode).isVisible());
}

TEST_F(CodesPageTest, theMarkerRefusesModificationAndRemovalButNotAnInsertion)
{
    user().doubleClickRow(listAt(0), 1);
    UsageMarker::unlock(book.files().usageMarker());
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    for (const int command : {modifyCode, removeCode, 10}) {
        boxes.expect(information(QStringLiteral("Αδύνατη η πρόσβαση"), markerRefusal(otherUser())));
        press(command);
        EXPECT_TRUE(boxes.allSeen()) << command;
    }
    EXPECT_EQ(codes(), unchanged);
    type(QStringLiteral("5"), QStringLiteral("ΝΕΟΣ"));
    press(insertCode);
    EXPECT_EQ(codes(), QStringLiteral("5 ΝΕΟΣ  0; ") + unchanged);
}

TEST_F(CodesPageTest, withoutTheRightTheListsAreReadAndNothingElseReacts)
{
    for (int number = 1000; number < 1060; ++number)
        book.addCode(number, QString::number(number), false, number < 1030 ? 7 : 0);
    start(noRights);
    selectTab(1);
    EXPECT_FALSE(user().find(QStringLiteral("Panel1(2)")).isEnabled());
    const auto places = [this] {
        QStringList values;
        for (const int index : {0, 1, 2})
            values += QString::number(listAt(index).verticalScrollBar()->value());
        return values.join(u' ');
    };
    const auto read = [] { return QApplication::focusWidget()->accessibleName(); };
    const int last = listAt(2).verticalScrollBar()->maximum();
    ASSERT_GT(last, 9);
    EXPECT_EQ(read(), listAt(0).accessibleName());
    user().press(Qt::Key_Down);
    EXPECT_EQ(places(), QStringLiteral("0 0 0"));
    user().press(Qt::Key_PageDown, Qt::KeypadModifier);
    EXPECT_EQ(places(), QStringLiteral("%1 0 0").arg(listAt(0).verticalScrollBar()->pageStep()));
    user().press(Qt::Key_Home);
    user().press(Qt::Key_Tab);
    EXPECT_EQ(read(), listAt(1).accessibleName());
    user().press(Qt::Key_Tab);
    user().press(Qt::Key_End);
    EXPECT_EQ(places(), QStringLiteral("0 0 %1").arg(last));
    EXPECT_EQ(read(), listAt(2).accessibleName());
    const auto frame = window().findChild<QFocusFrame*>();
    EXPECT_TRUE(frame->isVisible() && frame->widget() == &listAt(2));
    for (const int turned : {-60, -60, 40}) {
        QWheelEvent event({9, 9}, listAt(0).viewport()->mapToGlobal(QPointF(9, 9)), {}, {0, turned}, {}, {},
            Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // else it goes no further than to the control
        qApp->notify(listAt(0).viewport(), &event);
    }
    EXPECT_EQ(places(), QStringLiteral("2 0 %1").arg(last)) << "under the pointer";
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), QStringLiteral("Tab1"));
    EXPECT_FALSE(frame->isVisible());
    user().press(Qt::Key_Backtab);
    EXPECT_EQ(read(), listAt(2).accessibleName());

    user().doubleClickRow(listAt(0), 1);
    press(insertCode);
    EXPECT_EQ(fields(), QStringLiteral("|||01|"));
    EXPECT_EQ(listAt(2).verticalScrollBar()->value(), last);
}

} // namespace lorvan::test
