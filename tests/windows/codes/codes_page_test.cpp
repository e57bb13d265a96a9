#include "windows/main_window_test.h"

#include <QCheckBox>
#include <QFocusFrame>
#include <QScrollBar>
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
        book.addGroup(7, "Έξοδα 'Α'");
        book.addGroup(9, "Άλλη");
        book.addCode(300, "Παλιός", false, 7, false);
        book.addMovementRow(incomeOf(today, cents(100)));
        start(allRights);
        selectTab(CodesTab);
    }

    [[nodiscard]] QListView& listAt(int index) const { return list(QString("DBList1(%1)").arg(index)); }
    [[nodiscard]] QCheckBox& check(const char* name) const { return user().find<QCheckBox>(name); }
    /// Code, description, group, income and active, and whether the code is offered for a change.
    [[nodiscard]] QString fields() const
    {
        const bool offered = user().command(modifyCode).isVisible();
        EXPECT_EQ(user().command(removeCode).isVisible(), offered);
        return QStringList{user().field(code).text(), user().field(words).text(), user().field(group).text(),
            QString::number(check("SSCheck1").isChecked()) + QString::number(check("SSCheck2").isChecked()),
            offered ? "offered" : QString()}
            .join(u'|');
    }
    [[nodiscard]] QString codes() const
    {
        return stored("SELECT group_concat(kvdikos||' '||perigrafh||' '||ifnull(omada,'-')||' '||aa_omadas, '; ') FROM"
                      " (SELECT * FROM kvdikoi ORDER BY kvdikos, aa)");
    }
    void type(const QString& number, const QString& name) const
    {
        user().enter(code, number);
        user().press(Qt::Key_Return);
        user().type(name);
    }
    void expectRefusal(const QString& text, QMessageBox::Icon icon = QMessageBox::Information)
    {
        boxes.expect({icon, "Προσοχή", text});
    }

    static inline const QString unchanged = "100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός Έξοδα 'Α' 7";
};

} // namespace

TEST_F(CodesPageTest, theTabStartsEmptyAndADoubleClickOffersWhatAClickOnlyShows)
{
    EXPECT_EQ(fields(), "|||01|");
    EXPECT_EQ(user().focusName(), "Text1(4)");
    EXPECT_EQ(linesOf(listAt(0)), "  100 Λιανική\n  200 Προμήθειες\n  300 Παλιός");
    EXPECT_EQ(linesOf(listAt(1)), "Πωλήσεις\nΈξοδα 'Α'\nΆλλη");
    EXPECT_EQ(linesOf(listAt(2)), "  200 Προμήθειες") << "the codes without a group";

    user().doubleClickRow(listAt(0), 0);
    EXPECT_EQ(fields(), "100|Λιανική|Πωλήσεις|11|offered");
    user().press(Qt::Key_Down);
    user().press(Qt::Key_Delete, Qt::KeypadModifier);
    EXPECT_EQ(codes(), unchanged);
    EXPECT_EQ(fields(), "200|Προμήθειες||01|") << "going to another row is a click on it";
    user().press(Qt::Key_F2);
    EXPECT_EQ(fields(), "200|Προμήθειες||01|offered");
    user().clickRow(listAt(0), 2);
    EXPECT_EQ(fields(), "300|Παλιός|Έξοδα 'Α'|00|");

    user().doubleClickRow(listAt(0), 1);
    selectTab(CashTab);
    selectTab(CodesTab);
    EXPECT_EQ(fields(), "|||01|");
}

TEST_F(CodesPageTest, refusalsKeepWhatWasTypedAndGoToTheFieldInQuestion)
{
    struct Case {
        QString number, description, group, text, focus;
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
        type(each.number, each.description);
        user().enter(group, each.group);
        if (each.group.isEmpty())
            user().press(Qt::Key_Delete);
        expectRefusal(each.text, each.group.isEmpty() ? QMessageBox::Information : QMessageBox::Critical);
        press(insertCode);
        EXPECT_EQ(fields(), each.number + u'|' + each.description + u'|' + each.group + "|01|");
        EXPECT_EQ(user().focusName(), each.focus) << each.text;
    }
    EXPECT_EQ(codes(), unchanged);
}

TEST_F(CodesPageTest, anInsertedCodeJoinsTheListsAndTheChooserOfTheCashPage)
{
    type("250", "ο'νέος");
    user().doubleClickRow(listAt(1), 1);
    EXPECT_EQ(fields(), "250|Ο'ΝΈΟΣ|Έξοδα 'Α'|01|");
    press(insertCode);
    EXPECT_EQ(codes(), "100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 250 Ο'ΝΈΟΣ Έξοδα 'Α' 7; 300 Παλιός Έξοδα 'Α' 7");
    EXPECT_EQ(linesOf(listAt(2)), "  250 Ο'ΝΈΟΣ\n  300 Παλιός");
    EXPECT_EQ(listAt(0).currentIndex().row(), 2);
    EXPECT_EQ(user().focusName(), "Text1(4)");
    EXPECT_EQ(user().field(code).selectedText(), "250");
    EXPECT_GE(chooser().findText("250", Qt::MatchContains), 0);
}

TEST_F(CodesPageTest, aModificationAsksAndStoresTheCurrentGroupNumberWithTheNameThatIsShown)
{
    user().doubleClickRow(listAt(0), 0);
    user().clickRow(listAt(1), 2);
    EXPECT_EQ(fields(), "100|Λιανική|Πωλήσεις|11|offered") << "a click on a group changes its number alone";
    const auto ask = [this](QMessageBox::StandardButton answer, const QString& details = {}) {
        boxes.expect(withDetails(modifyQuestion(answer), details));
        press(modifyCode);
    };
    ask(QMessageBox::Cancel, "Ο κωδικός και 1 κίνηση θα ανήκουν στην ομάδα «Άλλη», αν και το πεδίο γράφει άλλο.");
    EXPECT_EQ(codes(), unchanged);
    ask(QMessageBox::Ok);
    EXPECT_EQ(codes(), "100 Λιανική Πωλήσεις 9; 200 Προμήθειες - 0; 300 Παλιός Έξοδα 'Α' 7");

    user().enter(code, "200");
    user().enter(words, "παλιός");
    ask(QMessageBox::Cancel,
        "Υπάρχει ήδη άλλος κωδικός 200.\nΤην ίδια περιγραφή έχει ήδη άλλος κωδικός.\n"
        "Μένουν με τον παλιό αριθμό 100: 1 κίνηση.");
    user().enter(code, "2Χ");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    expectRefusal("Ο κωδικός πρέπει να είναι ακέραιος αριθμός, από -2147483648 έως 2147483647");
    press(modifyCode);
    EXPECT_EQ(fields(), "2Χ|ΠΑΛΙΌΣ|Πωλήσεις|11|offered");
}

TEST_F(CodesPageTest, onlyAnUnusedCodeIsRemoved)
{
    user().doubleClickRow(listAt(0), 0);
    expectRefusal("Ο κωδικός χρεισιμοποιήτε στις κινήσεις του ταμείου και δεν μπορεί να διαγραφεί !");
    press(removeCode);

    user().doubleClickRow(listAt(0), 1);
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
        EXPECT_EQ(codes(), unchanged);
        boxes.expect(okCancel(QMessageBox::Question, "Διαγραφή κωδικού", "Να γίνει η διαγραφή του κωδικού;", answer));
        user().goTo(listAt(0));
        answer == QMessageBox::Ok ? user().press(Qt::Key_Delete) : press(removeCode);
    }
    EXPECT_EQ(codes(), "100 Λιανική Πωλήσεις 1; 300 Παλιός Έξοδα 'Α' 7");
    EXPECT_EQ(fields(), "200|Προμήθειες||01|");
    EXPECT_EQ(listAt(0).currentIndex().row(), 1);
    EXPECT_EQ(chooser().findText("200", Qt::MatchContains), -1);
}

TEST_F(CodesPageTest, afterTheGroupsWereEditedTheFieldsFollowTheGroupThatTheyShow)
{
    const auto edit = [this](const std::function<void(const Driver&)>& work) {
        boxes.whenShown("OmadaKvdikvn", [&work](QWidget& groups) {
            const Driver there(groups);
            there.doubleClickRow(there.find<QListView>("DBList1"), 1);
            work(there);
            there.click(there.command(0));
        });
        press(10);
    };
    user().doubleClickRow(listAt(0), 2);
    edit([this](const Driver& there) {
        there.goTo(there.find<QLineEdit>("Text1"));
        there.type("Νέα");
        boxes.expect(modifyQuestion(QMessageBox::Ok));
        there.click(there.command(2));
    });
    EXPECT_EQ(fields(), "300|Παλιός|Νέα|00|offered");
    EXPECT_EQ(linesOf(listAt(1)), "Πωλήσεις\nΝέα\nΆλλη");
    edit([this](const Driver& there) {
        boxes.expect(
            okCancel(QMessageBox::Critical, "Διαγραφή ομάδας", "Να γίνει η διαγραφή της ομάδας;", QMessageBox::Ok));
        there.click(there.command(3));
    });
    EXPECT_EQ(fields(), "300|Παλιός||00|offered");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modifyCode);
    EXPECT_EQ(codes(), "100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός  0");
}

TEST_F(CodesPageTest, whatAnotherComputerHasRenamedOrRemovedIsToldOrFollowed)
{
    type("7", "ΝΕΟΣ");
    user().doubleClickRow(listAt(1), 2);
    book.execute("UPDATE omades SET perigrafh='Ξένη' WHERE aa=9");
    expectRefusal("Δεν βρέθηκε η ομάδα στη λίστα με τις ομάδες, επιλέξτε  ξανά!", QMessageBox::Critical);
    press(insertCode);
    EXPECT_EQ(fields(), "7|ΝΕΟΣ|Άλλη|01|");
    EXPECT_EQ(linesOf(listAt(1)), "Πωλήσεις\nΈξοδα 'Α'\nΞένη") << "to choose again from";
    EXPECT_EQ(codes(), unchanged);

    user().doubleClickRow(listAt(0), 2);
    book.execute("UPDATE omades SET perigrafh='Νέα' WHERE aa=7; UPDATE kvdikoi SET omada='Νέα' WHERE aa_omadas=7");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modifyCode);
    EXPECT_EQ(codes(), "100 Λιανική Πωλήσεις 1; 200 Προμήθειες - 0; 300 Παλιός Νέα 7");

    book.execute("DELETE FROM kvdikoi WHERE kvdikos=200");
    expectRefusal("Ο κωδικός δεν υπάρχει πια. Τον έχει διαγράψει άλλος χρήστης.");
    user().clickRow(listAt(0), 1);
    EXPECT_EQ(linesOf(listAt(0)), "  100 Λιανική\n  300 Παλιός");
    EXPECT_FALSE(user().command(modifyCode).isVisible());
}

TEST_F(CodesPageTest, theMarkerRefusesModificationAndRemovalButNotAnInsertion)
{
    user().doubleClickRow(listAt(0), 1);
    UsageMarker::unlock(book.files().usageMarker());
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    for (const int command : {modifyCode, removeCode, 10}) {
        boxes.expect(information("Αδύνατη η πρόσβαση", markerRefusal(otherUser())));
        press(command);
    }
    EXPECT_EQ(codes(), unchanged);
    type("5", "ΝΕΟΣ");
    press(insertCode);
    EXPECT_EQ(codes(), "5 ΝΕΟΣ  0; " + unchanged);
}

TEST_F(CodesPageTest, withoutTheRightTheListsAreReadAndNothingElseReacts)
{
    for (int number = 1000; number < 1060; ++number)
        book.addCode(number, QString::number(number), false, number < 1030 ? 7 : 0);
    start(noRights);
    selectTab(CodesTab);
    EXPECT_FALSE(user().find("Panel1(2)").isEnabled());
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
    EXPECT_EQ(places(), "0 0 0");
    user().press(Qt::Key_PageDown, Qt::KeypadModifier);
    EXPECT_EQ(places(), QString("%1 0 0").arg(listAt(0).verticalScrollBar()->pageStep()));
    user().press(Qt::Key_Home);
    user().press(Qt::Key_Tab);
    EXPECT_EQ(read(), listAt(1).accessibleName());
    user().press(Qt::Key_Tab);
    user().press(Qt::Key_End);
    EXPECT_EQ(places(), QString("0 0 %1").arg(last));
    EXPECT_EQ(read(), listAt(2).accessibleName());
    const auto frame = window().findChild<QFocusFrame*>();
    EXPECT_TRUE(frame->isVisible() && frame->widget() == &listAt(2));
    for (const int turned : {-60, -60, 40}) {
        QWheelEvent event({9, 9}, listAt(0).viewport()->mapToGlobal(QPointF(9, 9)), {}, {0, turned}, {}, {},
            Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // else it goes no further than to the control
        qApp->notify(listAt(0).viewport(), &event);
    }
    EXPECT_EQ(places(), QString("2 0 %1").arg(last)) << "under the pointer";
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), "Tab1");
    EXPECT_FALSE(frame->isVisible());
    user().press(Qt::Key_Backtab);
    EXPECT_EQ(read(), listAt(2).accessibleName());

    user().doubleClickRow(listAt(0), 1);
    press(insertCode);
    EXPECT_EQ(fields(), "|||01|");
    EXPECT_EQ(listAt(2).verticalScrollBar()->value(), last);
}

} // namespace lorvan::test
