#include "windows/program_run.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QTimer>

namespace lorvan::test {
namespace {

enum Command { Unlock = 5, CloseDays, DeleteData };

ExpectedBox closeQuestion(QMessageBox::StandardButton answer)
{
    return yesNo(QMessageBox::Question, QStringLiteral("Κλείσιμο ταμείων"),
        QStringLiteral("Να κλείσουν όλα τα ανοικτά ταμεία μέχρι σήμερα;"), answer);
}

ExpectedBox deleteQuestion(QMessageBox::StandardButton answer)
{
    return yesNo(QMessageBox::Critical, QStringLiteral("Προσοχή ΔΙΑΓΡΑΦΗ"),
        QStringLiteral("Είσαι σίγουρος ΝΑ ΓΙΝΕΙ Η ΔΙΑΓΡΑΦΗ ΤΗΣ ΒΑΣΗΣ ΚΑΙ ΤΩΝ ΣΤΟΙΧΕΊΩΝ;"), answer);
}

class AdministrationTest : public ProgramTest {
protected:
    void startAsAdministrator()
    {
        startToSignIn();
        signIn(QStringLiteral("wardenly"), QStringLiteral("73816"));
    }
    void press(int command) const
    {
        user().goTo(user().command(command));
        user().press(Qt::Key_Return);
    }
    [[nodiscard]] static Driver user() { return Driver(loginWindow()); }
    [[nodiscard]] QString closedDays() const
    {
        Connection auxiliary = book.openAuxiliary();
        return valueOf(auxiliary, "SELECT count(*) FROM klhsimotameioy");
    }
    /// How many codes are left, and the copies.
    [[nodiscard]] QString left() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM kvdikoi") + u' '
            + QDir(book.folder()).entryList({QStringLiteral("*-2024-*")}, QDir::Files, QDir::Name).join(u' ');
    }
};

} // namespace

TEST_F(AdministrationTest, closesTheOpenDaysAfterAQuestion)
{
    book.close(QDate(2024, 3, 2));
    book.close(QDate(2024, 3, 5));
    startAsAdministrator();
    boxes.expect(closeQuestion(QMessageBox::No));
    press(CloseDays);
    EXPECT_EQ(closedDays(), QStringLiteral("2"));
    boxes.expect(closeQuestion(QMessageBox::Yes));
    press(CloseDays);
    EXPECT_EQ(closedDays(), QStringLiteral("4"));
}

TEST_F(AdministrationTest, theWindowStaysAliveOverCenturiesAndClosingItClosesNoDay)
{
    book.close(QDate(100, 1, 1));
    book.close(QDate(9999, 12, 31));
    startAsAdministrator();
    EXPECT_TRUE(endsIn([this] {
        boxes.expect(closeQuestion(QMessageBox::Yes));
        QTimer::singleShot(300, &loginWindow(), &QWidget::close);
        press(CloseDays);
    }));
    EXPECT_EQ(closedDays(), QStringLiteral("2"));
}

TEST_F(AdministrationTest, deletesNothingUnlessYesIsChosenAndACopyIsMade)
{
    startAsAdministrator();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        boxes.expect(byKey(deleteQuestion(QMessageBox::No), key));
        press(DeleteData);
    }
    ASSERT_TRUE(QDir().mkdir(book.path(QStringLiteral("mapcodes-2024-03-15-120000.mdb.part"))));
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"),
        QStringLiteral("Το αντίγραφο ασφαλείας δεν γράφτηκε και η βάση έμεινε όπως ήταν."))));
    press(DeleteData);
    EXPECT_EQ(left(), QStringLiteral("2 "));
    EXPECT_TRUE(user().command(DeleteData).isEnabled());
}

TEST_F(AdministrationTest, aDeletionSaysWhereTheCopyIsAndMovesNothing)
{
    startAsAdministrator();
    const QRect place = user().command(DeleteData).geometry();
    const QRect window = loginWindow().geometry();
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    press(DeleteData);
    EXPECT_EQ(left(), QStringLiteral("0 lorvan-2024-03-15-120000.mdb mapcodes-2024-03-15-120000.mdb"));
    EXPECT_EQ(user().command(DeleteData).geometry(), place);
    EXPECT_EQ(loginWindow().geometry(), window);
    EXPECT_EQ(user().focusName(), QStringLiteral("Command1(7)"));
    user().press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(user().focusName(), QStringLiteral("copyPath"));
    user().press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), book.path(QStringLiteral("lorvan-2024-03-15-120000.mdb")));
    signInAsSofia();
    EXPECT_NE(shownWindow(QStringLiteral("kentrikh")), nullptr);
}

TEST_F(AdministrationTest, unlockNeedsNeitherUsersNorAMarkerFile)
{
    ASSERT_TRUE(QFile::remove(book.files().auxiliaryDatabase()) && QFile::remove(book.files().usageMarker()));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("δεν ανοίγει"))));
    startAsAdministrator();
    boxes.expect(warning(QStringLiteral("Ξεκλείδωμα βάσης"), QStringLiteral("Η βάση ξεκλείδωσε ")));
    press(Unlock);
    EXPECT_EQ(files().at(QStringLiteral("lorvan.dat")).front(), '0');
}

} // namespace lorvan::test
