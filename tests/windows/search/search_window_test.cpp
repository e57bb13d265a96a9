#include "search/search_window.h"

#include "preview/ektypvsh.h"
#include "search/recent_searches.h"
#include "windows/main_window_test.h"

#include <QTreeView>

#include <algorithm>

namespace lorvan::test {
namespace {

class SearchWindowTest : public MainWindowTest {
protected:
    SearchWindowTest()
    {
        addMovement(expenseOf(QDate(2023, 5, 2), cents(3000), "ΕΞΟΔΑ ΝΕΡΟΥ"));
        addMovement(incomeOf(yesterday, cents(20000), "ΕΠΙΣΤΡΟΦΗ ΕΞΟΔΑ"));
        MovementDraft cheque = expenseOf(today, cents(21467), "ΔΕΗ 3-11");
        cheque.cheque = true;
        addMovement(cheque);
        addMovement(expenseOf(yesterday, cents(500), "νερό"));
    }
    void open()
    {
        user().press(Qt::Key_F, Qt::ControlModifier);
        search = window().findChild<SearchWindow*>();
        ASSERT_TRUE(search && search->isVisible());
        waitForActive(*search);
    }
    [[nodiscard]] Driver there() const { return Driver(*search); }
    [[nodiscard]] QTreeView& found() const { return there().find<QTreeView>("found"); }
    [[nodiscard]] QString state() const { return there().text("state"); }
    void waitUntilRead() const
    {
        EXPECT_TRUE(comesTrue([&] { return !state().contains("Ψάχνει") && !state().contains("ψάχνει"); }));
    }
    void type(const QString& text) const
    {
        there().goTo(there().find("text"));
        there().press(Qt::Key_A, Qt::ControlModifier);
        there().press(Qt::Key_Delete);
        there().type(text);
        waitUntilRead();
    }
    /// Day, description, amounts and cheque mark, a movement on each line.
    [[nodiscard]] QString rows() const
    {
        QStringList lines;
        const QAbstractItemModel& model = *found().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (const int column : {0, 2, 3, 4, 5})
                cells += model.index(row, column).data().toString();
            lines += cells.join(u'|');
        }
        return lines.join(u'\n');
    }

    SearchWindow* search = nullptr;
};

constexpr auto water = "14-03-2024|νερό|0|5,00|\n02-05-2023|ΕΞΟΔΑ ΝΕΡΟΥ|0|30,00|";

TEST_F(SearchWindowTest, findsAsIsTypedAndLeadsToTheMovementAndBack)
{
    start(allRights);
    open();
    type("νερο");
    EXPECT_EQ(rows(), water);
    EXPECT_EQ(state(), "Βρέθηκαν 2 κινήσεις   Έσοδα 0   Έξοδα 35,00");
    EXPECT_EQ(found().model()->index(0, 1).data().toString(), "200 Προμήθειες");
    there().press(Qt::Key_Down);
    EXPECT_EQ(there().focusName(), "found");
    there().press(Qt::Key_Up);
    EXPECT_EQ(there().focusName(), "text");
    there().type("\n");
    there().press(Qt::Key_Down);
    there().type("\n");
    EXPECT_FALSE(search->isVisible());
    EXPECT_EQ(user().field(date).text(), "02-05-2023");
    EXPECT_EQ(user().focusName(), "List1");
    EXPECT_TRUE(movementLine(1).contains("ΕΞΟΔΑ ΝΕΡΟΥ"));

    book.execute("DELETE FROM kinhseis WHERE aa=4");
    user().press(Qt::Key_Left, Qt::AltModifier);
    waitForActive(*search);
    waitUntilRead();
    EXPECT_EQ(rows(), QString(water).section(u'\n', 1));
    EXPECT_EQ(found().currentIndex().row(), 0);
    EXPECT_EQ(there().find<QLineEdit>("text").text(), "νερο");
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    there().press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_FALSE(search->isVisible());
    EXPECT_EQ(entry(), "0 | 30,00 | 0 | ΕΞΟΔΑ ΝΕΡΟΥ | 200 Προμήθειες");
    user().press(Qt::Key_Left, Qt::AltModifier);
    waitForActive(*search);
    there().press(Qt::Key_Escape);
    EXPECT_FALSE(search->isVisible());
    EXPECT_EQ(RecentSearches().list().value(0), "νερο");
}

TEST_F(SearchWindowTest, offersBothReadingsAndSaysWhatItDoesNotUnderstand)
{
    start(noRights);
    open();
    type("έξοδα >abc");
    EXPECT_EQ(found().model()->rowCount(), 4);
    EXPECT_EQ(there().text("notUnderstood"), "Δεν κατάλαβα: «>abc» – αναζητήθηκαν τα υπόλοιπα");
    const auto button = [&](const QString& name) -> QAbstractButton& { return there().find<QAbstractButton>(name); };
    EXPECT_EQ(button("meaning(0)").text(), "κινήσεις εξόδων: 3");
    EXPECT_EQ(button("words(0)").text(), "στην περιγραφή: 2");
    there().click(button("words(0)"));
    waitUntilRead();
    EXPECT_EQ(state(), "Βρέθηκαν 2 κινήσεις   Έσοδα 200,00   Έξοδα 30,00");
    EXPECT_EQ(button("words(0)").text(), "✓ στην περιγραφή: 2");
    EXPECT_EQ(button("meaning(0)").text(), "κινήσεις εξόδων: 3");
    there().click(button("meaning(0)"));
    waitUntilRead();
    EXPECT_EQ(found().model()->rowCount(), 3);
    there().press(Qt::Key_Space); // again, by the key
    waitUntilRead();
    EXPECT_EQ(found().model()->rowCount(), 4);

    const std::pair<const char*, int> counts[] = {{"επιταγή", 1}, {"214,67", 1}, {"3-11", 1}, {"14/3", 2},
        {"κωδ 200", 3}, {"100..300", 2}, {"\"έξοδα\" κωδ 100", 1}, {"\"", 0}, {"' OR 1", 0}, {">", 0}, {"5/2023", 1}};
    for (const auto& [typed, expected] : counts) {
        type(typed);
        EXPECT_EQ(found().model()->rowCount(), expected) << typed;
    }
    there().press(Qt::Key_A, Qt::ControlModifier);
    there().paste(QString("α3-11 ").repeated(2000));
    waitUntilRead();
    EXPECT_EQ(found().accessibleDescription(), "Το κείμενο είναι μεγαλύτερο από 1.000 χαρακτήρες και δεν αναζητήθηκε");
}

TEST_F(SearchWindowTest, showsMoreOfManyOnDemandAndPreviewsAll)
{
    book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1800) INSERT INTO kinhseis"
                 " (kvdikos, hmeromhnia, perigrafh, esoda, ejoda) SELECT 100, 20230101, 'ΠΟΛΛΕΣ', 100, 0 FROM n");
    book.execute("UPDATE kinhseis SET hmeromhnia=20220101 WHERE aa=(SELECT max(aa) FROM kinhseis)");
    start(noRights);
    open();
    type("πολλες");
    EXPECT_EQ(found().model()->rowCount(), 500);
    EXPECT_EQ(found().currentIndex().row(), 0);
    EXPECT_EQ(state(), "Βρέθηκαν 1.800 κινήσεις   Έσοδα 18,00   Έξοδα 0");
    there().goTo(found());
    for (const int expected : {1000, 1500, 1800}) {
        there().press(Qt::Key_End);
        EXPECT_TRUE(comesTrue([&] { return found().model()->rowCount() == expected; })) << expected;
    }
    there().press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(comesTrue([] {
        const QWidgetList all = QApplication::topLevelWidgets();
        return std::any_of(all.begin(), all.end(),
            [](const QWidget* each) { return each->isVisible() && qobject_cast<const Ektypvsh*>(each); });
    }));
}

} // namespace
} // namespace lorvan::test
