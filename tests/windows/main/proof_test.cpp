#include "windows/main_window_test.h"

#include <QAction>
#include <QDir>
#include <QMenu>

namespace lorvan::test {
namespace {

class ProofTest : public MainWindowTest {
protected:
    ProofTest()
    {
        for (const QDate day : {today.addDays(-3), yesterday, today})
            addMovement(incomeOf(day, cents(500), "Α"));
        book.execute("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) SELECT hmeromhnia, esoda, 0, 50000*aa"
                     " FROM kinhseis");
    }

    [[nodiscard]] QString proofTip() const { return user().find("proof").toolTip(); }
    /// Opens the window "Έλεγχος" by the line, or else by the menu.
    void openCheck(const std::function<void(const Driver& shown)>& act, bool byLine = false)
    {
        boxes.whenShown("check", [act](QWidget& shown) { act(Driver(shown)); });
        if (byLine)
            user().click(user().find("notices"));
        else
            user().find("tools").findChild<QAction*>("check")->trigger();
    }
    [[nodiscard]] static bool hasLine(const Driver& shown, const QString& line)
    {
        return linesOf(shown.find<QListView>("findings")).split(u'\n').contains(line);
    }
    static void selectLine(const Driver& shown, const QString& part)
    {
        auto& list = shown.find<QListView>("findings");
        const QString all = linesOf(list);
        list.setCurrentIndex(list.model()->index(static_cast<int>(all.first(all.indexOf(part)).count(u'\n')), 0));
    }
};

const QString wrong = "Το υπόλοιπο της 12-03-2024 διαφέρει από τις κινήσεις κατά 40,00";
constexpr auto damage = "UPDATE tameio SET ypoloipo=ypoloipo+400000 WHERE hmeromhnia=20240312";

} // namespace

TEST_F(ProofTest, balancesAreProvedAfterTheStartAndAfterAClosing)
{
    book.close(yesterday);
    start(allRights);
    ASSERT_TRUE(comesTrue([this] { return proofTip().contains("3 κινήσεις, 3 ημέρες, 1 σφραγίδα"); })) << "sealed late";
    EXPECT_EQ(notice(), "Ανοικτές ημέρες: 1 (από 12-03-2024)");
    book.execute(damage);
    boxes.expect(okCancel(QMessageBox::Question, "Κλείσιμο ταμείου", "Να κλείσω το ταμείο;", QMessageBox::Ok));
    press(closeCash);
    EXPECT_TRUE(comesTrue([this] { return notice().startsWith(wrong); }));
    EXPECT_EQ(proofTip(), "");

    bool wasAsked = false;
    boxes.whenShown("count", [&wasAsked](QWidget& shown) {
        wasAsked = true;
        Driver(shown).press(Qt::Key_Escape);
    });
    auto& others = user().find("otherNotices");
    user().click(others);
    auto* const menu = others.findChild<QMenu*>();
    const auto entries = menu->actions();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries[0]->text().startsWith("Η ημέρα 15-03-2024 έκλεισε")) << entries[0]->text();
    EXPECT_EQ(entries[1]->text(), "Ανοικτές ημέρες: 1 (από 12-03-2024)");
    menu->close();
    entries[0]->trigger();
    EXPECT_TRUE(comesTrue([&wasAsked] { return wasAsked; })) << "the closing sheet";
}

TEST_F(ProofTest, aCodeFromPaperIsAnswered)
{
    start(allRights);
    boxes.expect(okCancel(QMessageBox::Question, "Κλείσιμο ταμείου", "Να κλείσω το ταμείο;", QMessageBox::Ok));
    press(closeCash);
    const QString code = notice().right(12);
    openCheck([&](const Driver& shown) {
        shown.goTo(shown.find("code"));
        shown.type(code.toLower() + '\n');
        const QString answer = "Ο κωδικός " + code + " είναι της ημέρας 15-03-2024, έκδοση 1. ";
        EXPECT_TRUE(comesTrue([&] { return shown.text("answer") == answer + "Η ημέρα είναι όπως τυπώθηκε."; }));
        book.execute("UPDATE kinhseis SET esoda=7 WHERE hmeromhnia=20240315");
        shown.click(shown.find("askCode"));
        EXPECT_EQ(shown.text("answer"), answer + "Η ημέρα άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση.");
        shown.click(shown.find("fullCheck"));
        EXPECT_EQ(shown.text("answer"), "");
        shown.click(shown.find("close"));
    });
}

TEST_F(ProofTest, aFindingLeadsToItsDayAndToTheRepairOfThoseWhoMay)
{
    book.execute(damage);
    for (const Rights rights : {noRights, allRights}) {
        start(rights);
        ASSERT_TRUE(comesTrue([this] { return notice() == wrong; })) << notice();
        openCheck(
            [&](const Driver& shown) {
                EXPECT_EQ(shown.find("repair").isVisible(), rights.modifyCash);
                selectLine(shown, "12-03-2024");
                shown.click(shown.find("close"));
            },
            true);
        EXPECT_EQ(user().field(date).text(), "15-03-2024");
    }
    boxes.expect(partly(okCancel(QMessageBox::Question, "Διόρθωση", "Να διορθωθούν", QMessageBox::Ok)));
    openCheck([&](const Driver& shown) {
        EXPECT_TRUE(comesTrue([&] { return hasLine(shown, "  12-03-2024, υπόλοιπο 45,00 αντί για 5,00"); }));
        shown.click(shown.find("repair"));
        EXPECT_EQ(shown.text("summary"), "Η διόρθωση έγινε: ημέρες που διορθώθηκαν 1.");
        EXPECT_TRUE(hasLine(shown, "Δεν βρέθηκαν λάθη."));
        EXPECT_FALSE(shown.find("repair").isVisible());
        shown.click(shown.find("close"));
    });
    EXPECT_EQ(stored("SELECT ypoloipo FROM tameio WHERE hmeromhnia=20240312"), "50000");
    EXPECT_FALSE(QDir(book.folder() + "/backup").entryList({"lorvan-2024-*.tar"}).isEmpty());
    EXPECT_TRUE(comesTrue([this] { return notice().isEmpty() && proofTip().contains("3 ημέρες"); }));
}

TEST_F(ProofTest, enterGoesToADayAndItsCorrectionIsTold)
{
    book.execute("UPDATE tameio SET ypoloipo=7 WHERE hmeromhnia=20240312;"
                 "UPDATE tameio SET ejoda=1 WHERE hmeromhnia=20240314");
    start();
    selectTab(CodesTab);
    openCheck([&](const Driver& shown) {
        EXPECT_TRUE(comesTrue([&] { return hasLine(shown, "Λάθη"); }));
        selectLine(shown, "  12-03-2024, υπόλοιπο");
        shown.press(Qt::Key_Return);
    });
    EXPECT_EQ(user().field(date).text(), "12-03-2024");
    user().enter(date, "14/3/2024\n");
    const QString told = "Τα σύνολα της 14-03-2024 διορθώθηκαν από τις κινήσεις της: έσοδα 5,00 αντί για 5,00,"
                         " έξοδα 0,00 αντί για 0,0001, και 1 ακόμη ημέρα";
    EXPECT_TRUE(comesTrue([&] { return notice() == told; })) << notice();
    EXPECT_TRUE(user().find("notices").toolTip().contains(
        "Το υπόλοιπο της 12-03-2024 διορθώθηκε από τις κινήσεις της: ήταν 0,0007, έγινε 5,00"));
    user().click(user().find("notices"));
    EXPECT_EQ(notice(), "");
}

TEST_F(ProofTest, whoLooksOnProvesOnlyWhenAsked)
{
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    book.execute(damage);
    start(allRights);
    QTest::qWait(1500);
    EXPECT_FALSE(notice().contains(wrong));
    openCheck([&](const Driver& shown) {
        EXPECT_TRUE(comesTrue([&] { return hasLine(shown, "Λάθη"); }));
        boxes.expect(information("Αδύνατη η πρόσβαση", "Η βάση χρησιμοποιήτε από τον (την) Ελένη στον Η/Υ γραφείο"));
        shown.click(shown.find("repair"));
        shown.click(shown.find("close"));
    });
    EXPECT_TRUE(comesTrue([this] { return notice().startsWith(wrong); }));
    EXPECT_EQ(stored("SELECT ypoloipo FROM tameio WHERE hmeromhnia=20240312"), "450000");
}

} // namespace lorvan::test
