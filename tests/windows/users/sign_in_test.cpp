#include "windows/program_run.h"

namespace lorvan::test {
namespace {

constexpr int compactHeight = 155, enlargedHeight = 400;

class SignInTest : public ProgramTest { };

ExpectedBox wrongNameOrPassword()
{
    return information("Εισαγωγή Ονόματος / κωδικού", "Εχετε δώσει λάθος Ονομα ή κωδικό ");
}

void cutInHalf(const QString& path)
{
    ASSERT_TRUE(QFile::resize(path, QFile(path).size() / 2));
}

void makeFolder(const QString& path)
{
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
}

struct Trouble {
    const char* file;
    void (*make)(const QString& path);
    const char* details;
};

void PrintTo(const Trouble& each, std::ostream* stream)
{
    *stream << each.file << ' ' << each.details;
}

class SignInOnDamagedBook : public SignInTest, public testing::WithParamInterface<Trouble> { };

TEST_P(SignInOnDamagedBook, saysWhatIsWrongAndEndsUnchanged)
{
    GetParam().make(book.path(GetParam().file));
    const auto before = files();
    startToSignIn();
    boxes.expect(bookNotFound(GetParam().details));
    EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
    EXPECT_EQ(mainWindow(), nullptr);
    EXPECT_EQ(files(), before);
}

INSTANTIATE_TEST_SUITE_P(All, SignInOnDamagedBook,
    testing::Values(Trouble{"mapcodes.mdb", &makeFolder, "δεν ανοίγει"},
        Trouble{"lorvan.mdb", &cutInHalf, "έχει καταστραφεί"}, Trouble{"lorvan.dat", &makeFolder, "lorvan.dat"}));

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

TEST_F(SignInTest, takesBackWhatAKilledProgramLeftUnfinished)
{
    std::map<QString, QByteArray> left;
    {
        Connection killed = book.openAuxiliary();
        killed.execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<900)"
            " INSERT INTO klhsimotameioy (hmeraklhsimatos) SELECT 20240101 FROM n;"
            "PRAGMA cache_size = 2; BEGIN; UPDATE klhsimotameioy SET hmeraklhsimatos = 0; DELETE FROM codes");
        left = files();
    }
    ASSERT_TRUE(left.count("mapcodes.mdb-journal"));
    for (const auto& [name, bytes] : left) {
        QFile file(book.path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
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
