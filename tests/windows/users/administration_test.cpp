#include "cashbook/cash_book.h"
#include "cashbook/journal_keeping.h"
#include "windows/program_run.h"

#include <QMenu>

namespace lorvan::test {
namespace {

enum Command { Unlock = 5, CloseDays, DeleteData };

class AdministrationTest : public ProgramTest {
protected:
    [[nodiscard]] QString closedDays() const
    {
        Connection auxiliary = book.openAuxiliary();
        return valueOf(auxiliary, "SELECT count(*) FROM klhsimotameioy");
    }
    void closeDays(QMessageBox::StandardButton answer)
    {
        boxes.expect(yesNo(
            QMessageBox::Question, "Κλείσιμο ταμείων", "Να κλείσουν όλα τα ανοικτά ταμεία μέχρι σήμερα;", answer));
        press(CloseDays);
    }
    [[nodiscard]] static ExpectedBox deleteQuestion(QMessageBox::StandardButton answer)
    {
        return yesNo(QMessageBox::Critical, "Προσοχή ΔΙΑΓΡΑΦΗ",
            "Είσαι σίγουρος ΝΑ ΓΙΝΕΙ Η ΔΙΑΓΡΑΦΗ ΤΗΣ ΒΑΣΗΣ ΚΑΙ ΤΩΝ ΣΤΟΙΧΕΊΩΝ;", answer);
    }
    /// How many codes are left, and the copies.
    [[nodiscard]] QString left() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM kvdikoi") + u' '
            + QDir(book.folder()).entryList({"*-2024-*"}, QDir::Files, QDir::Name).join(u' ');
    }
};

} // namespace

TEST_F(AdministrationTest, closesTheOpenDaysAfterAQuestionAndStaysAlive)
{
    book.close(QDate(2024, 3, 2));
    book.close(QDate(2024, 3, 5));
    startAsAdministrator();
    closeDays(QMessageBox::No);
    EXPECT_EQ(closedDays(), "2");
    closeDays(QMessageBox::Yes);
    EXPECT_EQ(closedDays(), "4");

    book.close(QDate(100, 1, 1));
    book.close(QDate(9999, 12, 31));
    EXPECT_TRUE(endsIn([this] {
        QTimer atWork; // once the question is answered
        QObject::connect(&atWork, &QTimer::timeout, &atWork, [&] {
            if (!boxes.allSeen() || QApplication::activeModalWidget())
                return;
            atWork.stop();
            loginWindow().close();
        });
        atWork.start(10);
        closeDays(QMessageBox::Yes);
    }));
    EXPECT_EQ(closedDays(), "6") << "closing the window over centuries of work closes no day";
}

TEST_F(AdministrationTest, deletesNothingUnlessYesIsChosenAndACopyIsMade)
{
    startAsAdministrator();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        boxes.expect(byKey(deleteQuestion(QMessageBox::No), key));
        press(DeleteData);
    }
    ASSERT_TRUE(QDir().mkdir(book.path("mapcodes-2024-03-15-120000.mdb.part")));
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    boxes.expect(warningWith("Το αντίγραφο ασφαλείας δεν γράφτηκε και η βάση έμεινε όπως ήταν."));
    press(DeleteData);
    EXPECT_EQ(left(), "2 ");
    EXPECT_TRUE(user().command(DeleteData).isEnabled());
}

TEST_F(AdministrationTest, aDeletionSaysWhereTheCopyIsAndMovesNothing)
{
    startAsAdministrator();
    const QRect place = user().command(DeleteData).geometry();
    const QRect window = loginWindow().geometry();
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    press(DeleteData);
    EXPECT_EQ(left(), "0 lorvan-2024-03-15-120000.mdb mapcodes-2024-03-15-120000.mdb");
    EXPECT_EQ(user().command(DeleteData).geometry(), place);
    EXPECT_EQ(loginWindow().geometry(), window);
    EXPECT_EQ(user().focusName(), "Command1(7)");
    user().press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(user().focusName(), "copyPath");
    user().press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), book.path("lorvan-2024-03-15-120000.mdb"));
    signInAsSofia();
    EXPECT_NE(mainWindow(), nullptr);
}

TEST_F(AdministrationTest, unlockFreesTheMarkerAndNeedsNeitherUsersNorAMarkerFile)
{
    const auto unlock = [this] {
        boxes.expect(warning("Ξεκλείδωμα βάσης", "Η βάση ξεκλείδωσε "));
        press(Unlock);
    };
    const QByteArray names(50, 'x');
    writeFile(book.files().usageMarker(), '1' + names);
    startAsAdministrator();
    unlock();
    EXPECT_EQ(files().at("lorvan.dat"), '0' + names);

    program.reset();
    ASSERT_TRUE(QFile::remove(book.files().auxiliaryDatabase()) && QFile::remove(book.files().usageMarker()));
    boxes.expect(warningWith("δεν ανοίγει"));
    startAsAdministrator();
    unlock();
    EXPECT_EQ(markerState(), '0');
}

TEST_F(AdministrationTest, acceptsWhatWasChangedAroundTheProgramAndSealsOlderDays)
{
    const QDate day(2024, 3, 2);
    Book open = book.open();
    keepJournal(open.main(), open.auxiliary());
    (void)CashBook(open, byAll()).insert(incomeOf(day, cents(100)));
    book.close(day);
    const auto choose = [this](const char* entry) {
        user().click(user().find("administratorTools"));
        auto* const menu = user().find("administratorTools").findChild<QMenu*>();
        ASSERT_TRUE(comesTrue([menu] { return menu->isVisible(); }));
        menu->findChild<QAction*>(entry)->trigger();
        menu->hide();
    };
    const auto rows = [&](const char* sql) { return valueOf(open.auxiliary(), sql); };
    startAsAdministrator();
    const QString older = "Σφράγιση παλαιών ημερών";
    const QString question = "Να σφραγιστούν οι ημέρες που έχουν κλείσει χωρίς σφραγίδα;";
    boxes.expect(yesNo(QMessageBox::Question, older, question, QMessageBox::No));
    choose("sealOlder");
    EXPECT_EQ(rows("SELECT count(*) FROM seals"), "0");
    boxes.expect(yesNo(QMessageBox::Question, older, question, QMessageBox::Yes));
    boxes.expect(information(older, "Ημέρες που σφραγίστηκαν: 1"));
    choose("sealOlder");
    boxes.expect(information("Αποδοχή", "Δεν υπάρχει τίποτα προς αποδοχή."));
    choose("accept");

    book.execute("UPDATE kinhseis SET perigrafh='άλλη'");
    const ExpectedBox found =
        withDetails(okCancel(QMessageBox::Warning, "Αποδοχή",
                        "Να γίνουν αποδεκτά όσα δεν συμφωνούν με το ημερολόγιο και τις σφραγίδες;", QMessageBox::Ok),
            "Κινήσεις που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση: 1\n  κίνηση 1, ημέρα 02-03-2024");
    boxes.expect(byKey(found, Qt::Key_Return));
    choose("accept");
    EXPECT_EQ(rows("SELECT count(*) FROM seals"), "1") << "Enter accepts nothing";
    boxes.expect(found);
    boxes.expect(information("Αποδοχή", "Ευρήματα που έγιναν αποδεκτά και γράφτηκαν στο ημερολόγιο: 2"));
    choose("accept");
    EXPECT_EQ(rows("SELECT max(version) || ' ' || max(user) FROM seals"), "2 Διαχειριστής");
}

} // namespace lorvan::test
