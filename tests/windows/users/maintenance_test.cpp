#include "windows/program_run.h"

#include "users/user_accounts.h"

#include <QCheckBox>

namespace lorvan::test {
namespace {

enum Field { Name = 2, Password };
enum Command { Add = 2, Change, Remove, Unlock };

class MaintenanceTest : public ProgramTest {
protected:
    void startAsAdministrator()
    {
        startToSignIn();
        signIn(QStringLiteral("Wardenly"), QStringLiteral("73816"));
    }

    [[nodiscard]] static Driver user() { return Driver(loginWindow()); }
    [[nodiscard]] static QListView& list() { return user().find<QListView>(QStringLiteral("DBList1")); }

    /// Name, password and the three rights of every user, in stored order.
    [[nodiscard]] QStringList users() const
    {
        Connection auxiliary = book.openAuxiliary();
        QStringList rows;
        for (const UserAccount& each : listUsers(auxiliary))
            rows += QStringLiteral("%1/%2/%3%4%5")
                        .arg(each.name, each.password)
                        .arg(each.rights.modifyCash)
                        .arg(each.rights.closeCash)
                        .arg(each.rights.modifyCodes);
        return rows;
    }
};

TEST_F(MaintenanceTest, addsUsersOfOneNameQuotesAndAccentsIncluded)
{
    startAsAdministrator();
    user().enter(Name, QStringLiteral(" Σοφία "));
    user().enter(Password, QStringLiteral(" ά'\"%ς "));
    user().find<QCheckBox>(QStringLiteral("SSCheck1(1)")).setChecked(true);
    user().click(user().command(Add));
    EXPECT_EQ(users(), QStringList({QStringLiteral("Σοφία/μυστικό/000"), QStringLiteral("Σοφία/ά'\"%ς/010")}));
    EXPECT_EQ(linesOf(list()), QStringLiteral("Σοφία\nΣοφία"));
}

TEST_F(MaintenanceTest, refusesAnAccountWithoutNameOrPassword)
{
    startAsAdministrator();
    const auto before = users();
    for (const auto& [name, password, missing] :
        {std::tuple("", "κωδικός", Name), std::tuple("  ", "κωδικός", Name), std::tuple("όνομα", " ", Password)}) {
        user().enter(Name, QString::fromUtf8(name));
        user().enter(Password, QString::fromUtf8(password));
        boxes.expect(information(
            QStringLiteral("Προσοχή"), QStringLiteral("Δεν έχετε δώσει το Ονομα του χρήστη ή το κωδικό του")));
        user().click(user().command(Add));
        EXPECT_EQ(user().focusName(), QStringLiteral("Text1(%1)").arg(missing));
        EXPECT_EQ(user().field(missing).selectedText(), user().field(missing).text());
    }
    EXPECT_EQ(users(), before);
}

TEST_F(MaintenanceTest, aChangedUserStaysChosen)
{
    book.addUser(QStringLiteral("Νίκος"), QStringLiteral("νν"));
    startAsAdministrator();
    user().doubleClickRow(list(), 1);
    for (const QString& name : {QStringLiteral("Ά'\"%ς"), QString(10'000, u'ω'), QStringLiteral("Νικόλας")}) {
        user().field(Name).setText(name);
        user().goTo(user().command(Change));
        user().press(Qt::Key_Return);
        EXPECT_EQ(users(), QStringList({QStringLiteral("Σοφία/μυστικό/000"), name + QStringLiteral("/νν/000")}));
        EXPECT_EQ(list().currentIndex().row(), 1);
        EXPECT_EQ(user().focusName(), QStringLiteral("Command1(3)"));
    }
}

TEST_F(MaintenanceTest, removesOnlyWhoWasTakenUpAndAfterAQuestion)
{
    const auto question = [](QMessageBox::StandardButton answer) {
        return okCancel(QMessageBox::Question, QStringLiteral("Διαγραφή χρήστη"),
            QStringLiteral("Να γίνει η διαγραφή του χρήστη; "), answer);
    };
    book.addUser(QStringLiteral("Νίκος"), QStringLiteral("νν"));
    startAsAdministrator();
    user().doubleClickRow(list(), 1);
    user().clickRow(list(), 0);
    EXPECT_EQ(user().field(Name).text(), QStringLiteral("Σοφία"));
    EXPECT_FALSE(user().command(Change).isEnabled() || user().command(Remove).isEnabled());
    user().press(Qt::Key_Delete);
    EXPECT_EQ(users().size(), 2) << "a click only shows her";
    user().doubleClickRow(list(), 0);
    boxes.expect(question(QMessageBox::Cancel));
    user().click(user().command(Remove));
    EXPECT_EQ(users().size(), 2);
    boxes.expect(question(QMessageBox::Ok));
    user().click(user().command(Remove));
    EXPECT_EQ(users(), QStringList(QStringLiteral("Νίκος/νν/000")));
    for (const int index : {0, 1, 2, 3})
        EXPECT_TRUE(user().field(index).text().isEmpty()) << index;
    EXPECT_EQ(user().focusName(), QStringLiteral("DBList1")) << "not on the button that comes next";

    user().clickRow(list(), 0);
    user().press(Qt::Key_F2);
    boxes.expect(question(QMessageBox::Ok));
    user().press(Qt::Key_Delete);
    EXPECT_EQ(users(), QStringList());
}

TEST_F(MaintenanceTest, saysThatAUserIsGone)
{
    const auto gone = warning(
        QStringLiteral("Προσοχή"), QStringLiteral("Ο χρήστης άλλαξε ή διαγράφηκε στο μεταξύ από άλλον υπολογιστή."));
    startAsAdministrator();
    for (const int button : {Change, Remove}) {
        user().doubleClickRow(list(), 0);
        book.openAuxiliary().execute("DELETE FROM codes"); // the next user gets the row
        book.addUser(QStringLiteral("Νίκος"), QString::number(button));
        if (button == Remove)
            boxes.expect(okCancel(QMessageBox::Question, QStringLiteral("Διαγραφή χρήστη"),
                QStringLiteral("Να γίνει η διαγραφή του χρήστη; "), QMessageBox::Ok));
        boxes.expect(gone);
        user().click(user().command(button));
        EXPECT_FALSE(user().command(button).isEnabled());
        EXPECT_EQ(users(), QStringList(QStringLiteral("Νίκος/%1/000").arg(button)));
        EXPECT_EQ(linesOf(list()), QStringLiteral("Νίκος"));
    }
}

TEST_F(MaintenanceTest, unlockFreesTheMarkerAndKeepsItsNames)
{
    const QByteArray names = QByteArray("maria").leftJustified(25) + QByteArray("office").leftJustified(25);
    QFile marker(book.files().usageMarker());
    ASSERT_TRUE(marker.open(QIODevice::ReadWrite | QIODevice::Truncate));
    marker.write('1' + names);
    marker.close();
    startAsAdministrator();
    boxes.expect(warning(QStringLiteral("Ξεκλείδωμα βάσης"), QStringLiteral("Η βάση ξεκλείδωσε ")));
    user().click(user().command(Unlock));
    EXPECT_EQ(files().at(QStringLiteral("lorvan.dat")), '0' + names);
}

} // namespace
} // namespace lorvan::test
