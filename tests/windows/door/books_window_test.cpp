#include "backup/book_backup.h"
#include "books/book_choice.h"
#include "door/backup_window.h"
#include "door/books_window.h"
#include "door/first_user_window.h"
#include "door/new_book_window.h"
#include "door/older_book_window.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "users/user_accounts.h"
#include "windows/box_script.h"

#include <QAbstractItemView>
#include <QPlainTextEdit>

namespace lorvan::test {
namespace {

/// The door in a program folder and with settings of its own; two books are known, the first with users.
class DoorTest : public testing::Test {
protected:
    DoorTest()
    {
        first.addUser("Σοφία", "μυστικό");
        known.remember({{second.folder(), 255, "Δεύτερο"}});
        known.remember({{first.folder(), 65280, "Πρώτο"}});
    }

    static QString made(const QString& path)
    {
        writeFile(path, {});
        return path;
    }
    /// Shows the window of the books and waits until it has looked at each.
    void showBooks()
    {
        window.refill();
        showActive(window);
        ASSERT_TRUE(comesTrue([this] { return cell(list().model()->rowCount() - 1, 3) != "…"; }));
    }
    [[nodiscard]] QAbstractItemView& list() const { return Driver(window).find<QAbstractItemView>("list"); }
    [[nodiscard]] QString cell(int row, int column) const
    {
        return list().model()->index(row, column).data().toString();
    }
    [[nodiscard]] bool offers(const char* command) const { return Driver(window).find(command).isEnabled(); }
    void choose(int row) { list().setCurrentIndex(list().model()->index(row, 0)); }

    /// Goes to the field and types in place of what it holds.
    static void type(const Driver& user, const char* field, const QString& text)
    {
        user.goTo(user.find(field));
        user.press(Qt::Key_A, Qt::ControlModifier);
        user.type(text);
    }
    static void press(const Driver& user, const char* button)
    {
        user.goTo(user.find(button));
        user.press(Qt::Key_Return);
    }

    QTemporaryDir folder;
    TemporaryBook first;
    TemporaryBook second;
    const QString program = made(folder.filePath("program/lorvan"));
    const KnownBooks known{SettingsStore(folder.filePath("settings/Lorvan.ini"))};
    const BookChoice choice{program, known};
    BoxScript boxes;
    mutable BooksWindow window{choice, fixedClock()};
};

} // namespace

TEST_F(DoorTest, tellsOfEachBookAndOpensTheChosenOne)
{
    known.takeOver({folder.filePath("gone"), 0, "Χαμένο"});
    showBooks();
    EXPECT_EQ(cell(0, 0) + cell(1, 0) + cell(2, 0), "ΠρώτοΔεύτεροΧαμένο");
    EXPECT_EQ(cell(2, 3), "δεν βρέθηκε");
    EXPECT_TRUE(cell(0, 3).endsWith("KB")) << cell(0, 3);
    EXPECT_FALSE(offers("firstUser"));
    choose(1);
    EXPECT_TRUE(offers("firstUser"));
    EXPECT_TRUE(Driver(window).text("about").contains("δεν έχει ακόμη χρήστες"));

    QStringList chosen;
    QObject::connect(
        &window, &BooksWindow::bookChosen, &window, [&](const DataFolderSettings& book) { chosen += book.heading; });
    Driver(window).goTo(list());
    Driver(window).press(Qt::Key_Return);
    choose(2);
    boxes.expect(withDetails(warning("Προσοχή", "Το βιβλίο δεν ανοίγει."), "δεν βρέθηκε βιβλίο"));
    press(Driver(window), "open");
    boxes.expect(okCancel(
        QMessageBox::Question, "Αφαίρεση από τη λίστα", "Να αφαιρεθεί το «Χαμένο» από τη λίστα;", QMessageBox::Ok));
    Driver(window).goTo(list());
    Driver(window).press(Qt::Key_Delete);
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(chosen, QStringList("Δεύτερο"));
}

TEST_F(DoorTest, whileTheProgramRunsItOnlyLeadsThere)
{
    writeFile(folder.filePath("program/DIADROMH.DAT"), first.folder().toUtf8() + ",1,A");
    InstanceGuard running(program);
    ASSERT_TRUE(running.isOnlyInstance());
    showBooks();
    ASSERT_TRUE(comesTrue([this] { return !offers("new"); }));
    EXPECT_TRUE(Driver(window).text("about").contains("«A»"));
    for (const char* const command : {"existing", "backup", "older", "sample", "firstUser", "forget"})
        EXPECT_FALSE(offers(command)) << command;
    bool asked = false;
    QObject::connect(&window, &BooksWindow::programAsked, &window, [&asked] { asked = true; });
    press(Driver(window), "open");
    EXPECT_TRUE(asked);
}

TEST_F(DoorTest, makesANewBookAndKeepsWhatWasTypedUntilItIsRight)
{
    NewBookWindow form(fixedClock(), nullptr);
    showActive(form);
    const Driver user(form);
    type(user, "heading", "Τ' Αυλάκι\n");
    type(user, "folder", folder.filePath("νέο") + "\n\n");
    type(user, "amount", "1.500,50\n31.2.2024\n");
    user.type("Μαρία\nα\nβ\n");
    boxes.expect(partly(information("Προσοχή", "διαφέρουν")));
    press(user, "do");
    EXPECT_EQ(user.focusName(), "repeated");
    user.type("α\n");
    boxes.expect(partly(information("Προσοχή", "δεν είναι ημερομηνία")));
    press(user, "do");
    EXPECT_EQ(user.focusName(), "day");
    user.type("5.3\n");
    EXPECT_EQ(user.find<QLineEdit>("day").text(), "05-03-2024");
    boxes.expect(okCancel(QMessageBox::Question, "Νέο βιβλίο", "Να κλείσει το παράθυρο;", QMessageBox::Cancel));
    user.press(Qt::Key_Escape);
    ASSERT_TRUE(form.isVisible());
    press(user, "do");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.made().heading, "Τ' Αυλάκι");
    Connection main = openCopy(form.made().dataFolder + "/lorvan.mdb");
    EXPECT_EQ(valueOf(main, "SELECT day || ' ' || amount FROM opening_difference"), "20240305 15005000");
}

TEST_F(DoorTest, addsTheFirstUser)
{
    FirstUserWindow form(second.files(), fixedClock(), nullptr);
    showActive(form);
    const Driver user(form);
    user.type("Μαρία\nα\nα\n\n ");
    press(user, "do");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    Connection auxiliary = second.openAuxiliary();
    const auto users = listUsers(auxiliary);
    ASSERT_EQ(users.size(), 1U);
    EXPECT_TRUE(users[0].rights.modifyCash && !users[0].rights.closeCash && users[0].rights.modifyCodes);
}

TEST_F(DoorTest, takesABookOutOfABackupAndOutOfAnOlderProgram)
{
    const QString backup = folder.filePath("copy.tar");
    makeBackup(first.files(), backup, testKeys());
    const auto run = [this](TransferWindow& form, const QString& source, const QString& target, const char* report) {
        boxes.whenShown("report", [report](QWidget& shown) {
            EXPECT_TRUE(Driver(shown).find<QPlainTextEdit>("text").toPlainText().contains(report)) << report;
            shown.close();
        });
        showActive(form);
        type(Driver(form), "source", source);
        type(Driver(form), "folder", target);
        press(Driver(form), "do");
        return form.result() == QDialog::Accepted && form.made().dataFolder == target;
    };
    const auto showsContent = [this](const char* content, QMessageBox::StandardButton answer) {
        const QString question = "Να γίνει η επαναφορά από αυτό το αντίγραφο;";
        boxes.expect(withDetails(okCancel(QMessageBox::Question, "Από αντίγραφο", question, answer), content));
    };
    showsContent("copy.tar, ", QMessageBox::Cancel);
    BackupWindow refused(fixedClock(), {}, nullptr);
    EXPECT_FALSE(run(refused, backup, folder.filePath("none"), ""));
    showsContent("Καμία ημέρα δεν έχει κλείσει.", QMessageBox::Ok);
    BackupWindow restored(fixedClock(), {}, nullptr);
    EXPECT_TRUE(run(restored, backup, folder.filePath("restored"), "επανήλθε"));
    showsContent("Κωδικοί: 2, ομάδες: 1", QMessageBox::Ok);
    boxes.expect(partly(yesNo(QMessageBox::Warning, "Από αντίγραφο", "υπάρχει ήδη βιβλίο", QMessageBox::Yes)));
    BackupWindow replaced(fixedClock(), {}, nullptr);
    EXPECT_TRUE(run(replaced, backup, second.folder(), "φυλάσσονται"));
    boxes.expect(partly(information("Προσοχή", "Δεν υπάρχει")));
    BackupWindow missing(fixedClock(), {}, nullptr);
    EXPECT_FALSE(run(missing, backup + "x", folder.filePath("none"), ""));
    OlderBookWindow older(nullptr);
    EXPECT_TRUE(run(older, olderBook("v3"), folder.filePath("taken"), "μεταφέρθηκε"));
    EXPECT_FALSE(QFile::exists(folder.filePath("none")));
}

} // namespace lorvan::test
