#include "windows/program_run.h"

namespace lorvan::test {
namespace {

constexpr int compactHeight = 155, enlargedHeight = 400;

class SignInTest : public ProgramTest { };

ExpectedBox wrongNameOrPassword()
{
    return information("Εισαγωγή Ονόματος / κωδικού", "Εχετε δώσει λάθος Ονομα ή κωδικό ");
}

} // namespace

TEST_F(SignInTest, aWrongNameOrPasswordIsRefusedAsOftenAsItIsTyped)
{
    startToSignIn();
    for (const auto& [name, password] : {std::pair("", ""), std::pair("Σοφία", "μυστικο"), std::pair("%", "%")}) {
        boxes.expect(wrongNameOrPassword());
        signIn(name, password);
        EXPECT_EQ(user().field(0).text(), name);
        EXPECT_EQ(user().field(1).text(), password);
        EXPECT_EQ(user().focusName(), "Text1(0)");
        EXPECT_EQ(user().field(0).selectedText(), name) << "typing replaces it";
    }
    EXPECT_EQ(user().field(1).echoMode(), QLineEdit::Password);
    EXPECT_EQ(mainWindow(), nullptr);
}

TEST_F(SignInTest, aBookWithoutUsersSaysSo)
{
    book.openAuxiliary().execute("DELETE FROM codes");
    startToSignIn();
    boxes.expect(
        withDetails(wrongNameOrPassword(), "Το βιβλίο δεν έχει ακόμη χρήστες. Προσθέστε τον πρώτο από τα «Βιβλία…»."));
    signIn("Σοφία", "μυστικό");
}

TEST_F(SignInTest, theAdministratorGetsALargerWindowAndNoRights)
{
    const auto expectLarge = [](bool isLarge) {
        EXPECT_EQ(loginWindow().height(), isLarge ? enlargedHeight : compactHeight);
        EXPECT_EQ(user().find("SSFrame1").isVisible(), isLarge);
    };
    startToSignIn();
    expectLarge(false);
    signIn("WARDENLY", "73816");
    expectLarge(true);
    EXPECT_EQ(mainWindow(), nullptr);
    boxes.expect(wrongNameOrPassword());
    signIn("wardenly", "73 816");
    expectLarge(false);
    signIn("wardenly", "73816");
    signInAsSofia();
    ASSERT_NE(mainWindow(), nullptr);
    EXPECT_FALSE(Driver(*mainWindow()).command(8).isVisible()) << "her own rights, which are none";
}

TEST_F(SignInTest, aBookThatDoesNotOpenIsToldAndLeftAsItIs)
{
    for (const auto& [name, details] :
        {std::pair("mapcodes.mdb", "δεν ανοίγει"), std::pair("lorvan.dat", "lorvan.dat")}) {
        ASSERT_TRUE(QFile::rename(book.path(name), book.path("aside")) && QDir().mkdir(book.path(name)));
        const auto before = files();
        startToSignIn();
        boxes.expect(bookNotFound(details));
        EXPECT_TRUE(endsIn([this] { signInAsSofia(); })) << name;
        EXPECT_EQ(mainWindow(), nullptr);
        EXPECT_EQ(files(), before);
        program.reset();
        ASSERT_TRUE(QDir().rmdir(book.path(name)) && QFile::rename(book.path("aside"), book.path(name)));
    }
}

TEST_F(SignInTest, takesBackWhatAKilledProgramLeftUnfinished)
{
    leaveJournal(book.files().auxiliaryDatabase(), "DELETE FROM codes");
    startToSignIn();
    signInAsSofia();
    EXPECT_NE(mainWindow(), nullptr);
}

TEST_F(SignInTest, endsByItsButtonAndItsFrameButNotByEscape)
{
    startToSignIn();
    user().press(Qt::Key_Escape);
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_TRUE(endsIn([] { user().click(user().command(1)); }));
    program.reset();
    startToSignIn();
    EXPECT_TRUE(endsIn([] { loginWindow().close(); }));
}

TEST_F(SignInTest, aUserWorksWithHerRightsUntilTheWindowCloses)
{
    book.openAuxiliary().execute("UPDATE codes SET r_klhsimo=-1");
    startToSignIn();
    EXPECT_TRUE(endsIn([this] {
        signInAsSofia();
        ASSERT_NE(mainWindow(), nullptr);
        EXPECT_TRUE(Driver(*mainWindow()).command(8).isVisible()) << "the user's right to close the cash";
        mainWindow()->close();
    }));
    EXPECT_EQ(markerState(), '0');
}

} // namespace lorvan::test
