#include "windows/program_run.h"

#include "users/user_accounts.h"

#include <QCheckBox>

namespace lorvan::test {
namespace {

enum Field { Name = 2, Password };
enum Command { Add = 2, Change, Remove };

/// The administrator's list of users: Σοφία and Νίκος.
class MaintenanceTest : public ProgramTest {
protected:
    void SetUp() override
    {
        book.addUser("Νίκος", "νν");
        startAsAdministrator();
    }
    [[nodiscard]] static QListView& list() { return user().find<QListView>("DBList1"); }
    void expectRemovalQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(okCancel(QMessageBox::Question, "Διαγραφή χρήστη", "Να γίνει η διαγραφή του χρήστη; ", answer));
    }
    /// Name, password and the three rights of every user, in stored order.
    [[nodiscard]] QString users() const
    {
        Connection auxiliary = book.openAuxiliary();
        QStringList rows;
        for (const UserAccount& each : listUsers(auxiliary))
            rows += QString("%1/%2/%3%4%5")
                        .arg(each.name, each.password)
                        .arg(each.rights.modifyCash)
                        .arg(each.rights.closeCash)
                        .arg(each.rights.modifyCodes);
        return rows.join(u' ');
    }
};

TEST_F(MaintenanceTest, addsUsersOfOneNameQuotesIncludedButNoneWithoutNameOrPassword)
{
    for (const auto& [name, password, missing] :
        {std::tuple("  ", "κωδικός", Name), std::tuple("όνομα", " ", Password)}) {
        user().enter(Name, name);
        user().enter(Password, password);
        boxes.expect(information("Προσοχή", "Δεν έχετε δώσει το Ονομα του χρήστη ή το κωδικό του"));
        press(Add);
        EXPECT_EQ(user().focusName(), QString("Text1(%1)").arg(missing));
        EXPECT_EQ(user().field(missing).selectedText(), user().field(missing).text());
    }
    user().enter(Name, " Σοφία ");
    user().enter(Password, " ά'\"%ς ");
    user().find<QCheckBox>("SSCheck1(1)").setChecked(true);
    press(Add);
    EXPECT_EQ(users(), "Σοφία/μυστικό/000 Νίκος/νν/000 Σοφία/ά'\"%ς/010");
    EXPECT_EQ(linesOf(list()), "Σοφία\nΝίκος\nΣοφία");
}

TEST_F(MaintenanceTest, aChangedUserStaysChosen)
{
    user().doubleClickRow(list(), 1);
    for (const QString& name : {QString("Ά'\"%ς"), QString(10'000, u'ω')}) {
        user().field(Name).setText(name);
        press(Change);
        EXPECT_EQ(users(), "Σοφία/μυστικό/000 " + name + "/νν/000");
        EXPECT_EQ(list().currentIndex().row(), 1);
        EXPECT_EQ(user().focusName(), "Command1(3)");
    }
}

TEST_F(MaintenanceTest, removesOnlyWhoWasTakenUpAndAfterAQuestion)
{
    const QString both = users();
    user().doubleClickRow(list(), 1);
    user().clickRow(list(), 0);
    EXPECT_EQ(user().field(Name).text(), "Σοφία");
    EXPECT_FALSE(user().command(Change).isEnabled() || user().command(Remove).isEnabled());
    user().press(Qt::Key_Delete);
    EXPECT_EQ(users(), both) << "a click only shows her";
    user().doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Cancel);
    press(Remove);
    EXPECT_EQ(users(), both);
    expectRemovalQuestion(QMessageBox::Ok);
    press(Remove);
    EXPECT_EQ(users(), "Νίκος/νν/000");
    for (const int index : {0, 1, 2, 3})
        EXPECT_TRUE(user().field(index).text().isEmpty()) << index;
    EXPECT_EQ(user().focusName(), "DBList1") << "not on the button that comes next";

    user().clickRow(list(), 0);
    user().press(Qt::Key_F2);
    expectRemovalQuestion(QMessageBox::Ok);
    user().press(Qt::Key_Delete);
    EXPECT_EQ(users(), "");
}

TEST_F(MaintenanceTest, saysThatAUserIsGone)
{
    for (const int button : {Change, Remove}) {
        user().doubleClickRow(list(), 0);
        book.openAuxiliary().execute("DELETE FROM codes"); // the next user gets the row
        book.addUser("Νίκος", QString::number(button));
        if (button == Remove)
            expectRemovalQuestion(QMessageBox::Ok);
        boxes.expect(warning("Προσοχή", "Ο χρήστης άλλαξε ή διαγράφηκε στο μεταξύ από άλλον υπολογιστή."));
        press(button);
        EXPECT_FALSE(user().command(button).isEnabled());
        EXPECT_EQ(users(), QString("Νίκος/%1/000").arg(button));
        EXPECT_EQ(linesOf(list()), "Νίκος");
    }
}

} // namespace
} // namespace lorvan::test
