#include "windows/main_window_test.h"

#include "cashbook/cash_book.h"
#include "journal/journal_window.h"
#include "preview/ektypvsh.h"

#include <QTreeView>

#include <algorithm>

namespace lorvan::test {
namespace {

class JournalWindowTest : public MainWindowTest {
protected:
    void open()
    {
        user().press(Qt::Key_H, Qt::ControlModifier);
        journal = window().findChild<JournalWindow*>();
        ASSERT_TRUE(journal && journal->isVisible());
        waitForActive(*journal);
        waitUntilRead();
    }
    void waitUntilRead() const
    {
        EXPECT_TRUE(comesTrue([&] { return !state().contains("διαβάζονται"); })) << state().toStdString();
    }
    [[nodiscard]] Driver there() const { return Driver(*journal); }
    [[nodiscard]] QString state() const { return there().text("state"); }
    [[nodiscard]] QTreeView& view(const QString& name) const { return there().find<QTreeView>(name); }
    /// The texts of the columns from `first` on, a row on each line.
    [[nodiscard]] QString rows(const QString& name, int first) const
    {
        QStringList lines;
        const QAbstractItemModel& model = *view(name).model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = first; column < model.columnCount(); ++column)
                cells += model.index(row, column).data().toString().trimmed();
            lines += cells.join(u'|');
        }
        return lines.join(u'\n');
    }
    void filterBy(const QString& field, const QString& text) const
    {
        there().goTo(there().find(field));
        there().press(Qt::Key_A, Qt::ControlModifier);
        there().press(Qt::Key_Delete);
        there().type(text + u'\n');
        QCoreApplication::processEvents();
        waitUntilRead();
    }

    JournalWindow* journal = nullptr;
};

TEST_F(JournalWindowTest, showsWhatDiffersNarrowsDownAndPrints)
{
    {
        Book opened = book.open();
        CashBook cash(opened, byAll());
        (void)cash.insert(expenseOf(today, cents(1200), "νερό"));
        (void)cash.modify(1, expenseOf(today, cents(1300), "νερό"));
        (void)cash.insert(incomeOf(today, cents(500)));
    }
    start();
    open();
    const QString changes = "Μεταβολή κίνησης|Κίνηση 1 (νερό): Έξοδα 12,00 → 13,00\n"
                            "Εισαγωγή κίνησης|Κίνηση 1: Κωδικός 200, Έξοδα 12,00, νερό, 15-03-2024";
    EXPECT_EQ(rows("changes", 2).section(u'\n', 1, 2), changes);
    there().press(Qt::Key_Down);
    EXPECT_TRUE(there().text("change").startsWith("Μεταβολή κίνησης, ")) << there().text("change").toStdString();
    EXPECT_TRUE(rows("states", 0).contains("\n≠ Έξοδα|12,00|13,00\n")) << rows("states", 0).toStdString();
    there().click(there().find("history"));
    waitUntilRead();
    EXPECT_EQ(rows("changes", 2), changes);
    there().click(there().find("all"));
    waitUntilRead();

    filterBy("code", "200");
    EXPECT_EQ(rows("changes", 2), changes);
    EXPECT_EQ(state(), "Φίλτρα: κωδικός 200 – 2");
    there().press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(comesTrue([] {
        const QWidgetList all = QApplication::topLevelWidgets();
        return std::any_of(all.begin(), all.end(),
            [](const QWidget* each) { return each->isVisible() && qobject_cast<const Ektypvsh*>(each); });
    }));
    waitForActive(*journal);
    filterBy("user", "κανείς");
    EXPECT_EQ(rows("changes", 2), "");
    EXPECT_EQ(view("changes").accessibleDescription(), "Καμία αλλαγή δεν ταιριάζει.");
    boxes.expect(warning("Λάθος ημερομηνία", "Η εισαγωγή της ημερομηνίας είναι λάθος"));
    filterBy("day", "99");
    EXPECT_TRUE(comesTrue([&] { return boxes.allSeen(); }));
    EXPECT_EQ(there().focusName(), "day");
    there().press(Qt::Key_Escape);
    EXPECT_FALSE(journal->isVisible());

    waitForActive(window());
    user().goTo(list());
    list().setCurrentIndex(list().model()->index(2, 0));
    open();
    EXPECT_TRUE(state().startsWith("Φίλτρα: η ιστορία: ")) << state().toStdString();
    EXPECT_EQ(rows("changes", 2), "Εισαγωγή κίνησης|Κίνηση 2: Κωδικός 100, Έσοδα 5,00, είσπραξη, 15-03-2024");
}

TEST_F(JournalWindowTest, readsOnePageMoreWhenTheUserReachesTheEnd)
{
    book.execute("WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i+1 FROM n WHERE i<1900)"
                 " INSERT INTO journal (id, action, subject) SELECT i, 'insert', 'movement/'||i FROM n");
    start();
    open();
    const QAbstractItemModel& changes = *view("changes").model();
    EXPECT_EQ(changes.rowCount(), 200);
    there().goTo(view("changes"));
    for (const int expected : {400, 600}) {
        there().press(Qt::Key_End);
        EXPECT_TRUE(comesTrue([&] { return changes.rowCount() >= expected; }));
        waitUntilRead();
        QTest::qWait(50); // enough for another page, if it were read
        EXPECT_EQ(changes.rowCount(), expected);
    }
}

TEST_F(JournalWindowTest, saysThatThereIsNoJournalInABookThatHasNone)
{
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    book.execute("DROP TABLE journal");
    start();
    open();
    EXPECT_TRUE(view("changes").accessibleDescription().startsWith("Το βιβλίο δεν έχει ιστορικό ακόμη."));
}

} // namespace
} // namespace lorvan::test
