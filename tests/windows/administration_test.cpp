#include "program_run.h"

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
    [[nodiscard]] QString codes() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM kvdikoi");
    }
    [[nodiscard]] QStringList copies() const
    {
        return QDir(book.folder()).entryList({QStringLiteral("*-2024-*")}, QDir::Files, QDir::Name);
    }
    /// Where the row's controls stand.
    [[nodiscard]] static QList<QRect> places()
    {
        QList<QRect> places{loginWindow().geometry()};
        for (const int command : {Unlock, CloseDays, DeleteData})
            places += user().command(command).geometry();
        return places;
    }
};

} // namespace

TEST_F(AdministrationTest, closesTheOpenDaysAfterAQuestion)
{
    for (const int day : {1, 2, 5})
        book.close(QDate(2024, 3, day));
    startAsAdministrator();
    boxes.expect(closeQuestion(QMessageBox::No));
    press(CloseDays);
    EXPECT_EQ(closedDays(), QStringLiteral("3"));
    boxes.expect(closeQuestion(QMessageBox::Yes));
    press(CloseDays);
    EXPECT_EQ(closedDays(), QStringLiteral("5"));
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

TEST_F(AdministrationTest, deletesNothingUnlessYesIsChosen)
{
    startAsAdministrator();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        boxes.expect(byKey(deleteQuestion(QMessageBox::No), key));
        press(DeleteData);
    }
    EXPECT_EQ(codes(), QStringLiteral("2"));
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(AdministrationTest, aDeletionSaysWhereTheCopyIsAndMovesNothing)
{
    startAsAdministrator();
    const auto before = places();
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    press(DeleteData);
    EXPECT_EQ(codes(), QStringLiteral("0"));
    EXPECT_EQ(copies(),
        QStringList(
            {QStringLiteral("lorvan-2024-03-15-120000.mdb"), QStringLiteral("mapcodes-2024-03-15-120000.mdb")}));
    EXPECT_EQ(places(), before);
    EXPECT_EQ(user().focusName(), QStringLiteral("Command1(7)"));

    const QString path = book.path(QStringLiteral("lorvan-2024-03-15-120000.mdb"));
    EXPECT_EQ(user().text(QStringLiteral("copyPath")), path);
    user().press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(user().focusName(), QStringLiteral("copyPath"));
    user().press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), path);

    signInAsSofia();
    EXPECT_NE(shownWindow(QStringLiteral("kentrikh")), nullptr);
}

TEST_F(AdministrationTest, deletesNothingWithoutACopy)
{
    ASSERT_TRUE(QDir().mkdir(book.path(QStringLiteral("mapcodes-2024-03-15-120000.mdb.part"))));
    startAsAdministrator();
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"),
        QStringLiteral("Το αντίγραφο ασφαλείας δεν γράφτηκε και η βάση έμεινε όπως ήταν."))));
    press(DeleteData);
    EXPECT_EQ(codes(), QStringLiteral("2"));
    EXPECT_EQ(copies(), QStringList());
    EXPECT_EQ(user().text(QStringLiteral("copyPath")), QString());
    EXPECT_TRUE(user().command(DeleteData).isEnabled());
}

TEST_F(AdministrationTest, withoutUsersOnlyTheMarkerCanBeFreed)
{
    ASSERT_TRUE(QFile::remove(book.files().auxiliaryDatabase()));
    const ExpectedBox doesNotOpen = partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("δεν ανοίγει")));
    boxes.expect(doesNotOpen);
    startAsAdministrator();
    ASSERT_TRUE(QFile::remove(book.files().usageMarker()));
    boxes.expect(warning(QStringLiteral("Ξεκλείδωμα βάσης"), QStringLiteral("Η βάση ξεκλείδωσε ")));
    press(Unlock);
    EXPECT_EQ(files().at(QStringLiteral("lorvan.dat")).front(), '0');
    boxes.expect(deleteQuestion(QMessageBox::Yes));
    boxes.expect(doesNotOpen);
    press(DeleteData);
    EXPECT_EQ(codes(), QStringLiteral("2"));
    EXPECT_EQ(copies(), QStringList());
}

} // namespace lorvan::test
