#include "windows/program_run.h"

#include <QDir>
#include <QFile>

namespace lorvan::test {
namespace {

const QString mainWindow = QStringLiteral("kentrikh");
constexpr int compactHeight = 155;
constexpr int enlargedHeight = 400;

class SignInTest : public ProgramTest { };

ExpectedBox wrongNameOrPassword()
{
    return information(
        QStringLiteral("Εισαγωγή Ονόματος / κωδικού"), QStringLiteral("Εχετε δώσει λάθος Ονομα ή κωδικό "));
}

struct Credentials {
    const char* name;
    const char* password;
};

struct Trouble {
    const char* name;
    const char* file;
    void (*make)(const QString& path);
    const char* details;
};

void PrintTo(const Trouble& each, std::ostream* stream)
{
    *stream << each.name;
}

void removeFile(const QString& path)
{
    ASSERT_TRUE(QFile::remove(path));
}

/// No key fits any more.
void changeFirstByte(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray first = file.read(1);
    file.seek(0);
    file.write(QByteArray(1, static_cast<char>(first.front() ^ 0x55)));
}

void cutInHalf(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.resize(file.size() / 2));
}

void makeFolder(const QString& path)
{
    removeFile(path);
    ASSERT_TRUE(QDir().mkdir(path));
}

class SignInOnDamagedBook : public SignInTest, public testing::WithParamInterface<Trouble> { };

TEST_P(SignInOnDamagedBook, saysWhatIsWrongAndEndsUnchanged)
{
    GetParam().make(book.path(QString::fromUtf8(GetParam().file)));
    const auto before = files();
    startToSignIn();
    boxes.expect(bookNotFound(QString::fromUtf8(GetParam().details)));
    EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
    EXPECT_EQ(shownWindow(mainWindow), nullptr);
    EXPECT_EQ(files(), before);
}

constexpr const char* users = "mapcodes.mdb";
constexpr const char* movements = "lorvan.mdb";
constexpr const char* wrongKey = "κωδικός της βάσης";

INSTANTIATE_TEST_SUITE_P(All, SignInOnDamagedBook,
    testing::Values(Trouble{"users missing", users, &removeFile, "δεν ανοίγει"},
        Trouble{"users under another key", users, &changeFirstByte, wrongKey},
        Trouble{"half of the users", users, &cutInHalf, "έχει καταστραφεί"},
        Trouble{"movements under another key", movements, &changeFirstByte, wrongKey},
        Trouble{"half of the movements", movements, &cutInHalf, "έχει καταστραφεί"},
        Trouble{"marker is a folder", "lorvan.dat", &makeFolder, "lorvan.dat"}));

} // namespace

TEST_F(SignInTest, aWrongNameOrPasswordIsRefusedAsOftenAsItIsTyped)
{
    startToSignIn();
    const Driver user(loginWindow());
    for (const Credentials& each : {Credentials{"", ""}, Credentials{"Σοφία", ""}, Credentials{"Σοφία", "μυστικο"},
             Credentials{"Σοφία ", "μυστικό"}, Credentials{"' or '1'='1", "' or '1'='1"}, Credentials{"Σοφία' --", "x"},
             Credentials{"%", "%"}, Credentials{"wardenly", "7381"}}) {
        boxes.expect(wrongNameOrPassword());
        signIn(QString::fromUtf8(each.name), QString::fromUtf8(each.password));
        EXPECT_TRUE(boxes.allSeen()) << each.name;
        EXPECT_EQ(user.field(0).text(), QString::fromUtf8(each.name));
        EXPECT_EQ(user.field(1).text(), QString::fromUtf8(each.password));
        EXPECT_EQ(user.focusName(), QStringLiteral("Text1(0)"));
        EXPECT_EQ(user.field(0).selectedText(), QString::fromUtf8(each.name)) << "typing replaces it";
    }
    EXPECT_EQ(user.field(1).echoMode(), QLineEdit::Password);
    EXPECT_EQ(shownWindow(mainWindow), nullptr);
}

TEST_F(SignInTest, theAdministratorGetsALargerWindowAndNoRights)
{
    startToSignIn();
    EXPECT_EQ(loginWindow().height(), compactHeight);
    signIn(QStringLiteral("WARDENLY"), QStringLiteral("73816"));
    EXPECT_EQ(loginWindow().height(), enlargedHeight);
    EXPECT_TRUE(Driver(loginWindow()).find(QStringLiteral("SSFrame1")).isVisible());
    EXPECT_EQ(shownWindow(mainWindow), nullptr);

    boxes.expect(wrongNameOrPassword());
    signIn(QStringLiteral("wardenly"), QStringLiteral("73 816"));
    EXPECT_EQ(loginWindow().height(), compactHeight);
    EXPECT_FALSE(Driver(loginWindow()).find(QStringLiteral("SSFrame1")).isVisible());
    signIn(QStringLiteral("wardenly"), QStringLiteral("73816"));
    signInAsSofia();
    ASSERT_NE(shownWindow(mainWindow), nullptr);
    EXPECT_FALSE(Driver(*shownWindow(mainWindow)).command(8).isVisible()) << "her own rights, which are none";
}

TEST_F(SignInTest, takesBackWhatAKilledProgramLeftUnfinished)
{
    const QString path = book.files().auxiliaryDatabase();
    std::map<QString, QByteArray> left;
    {
        Connection killed = book.openAuxiliary();
        killed.execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<900)"
            " INSERT INTO klhsimotameioy (hmeraklhsimatos) SELECT 20240101 FROM n;"
            "PRAGMA cache_size = 2; BEGIN; UPDATE klhsimotameioy SET hmeraklhsimatos = 0; DELETE FROM codes");
        left = files();
    }
    ASSERT_TRUE(left.count(QStringLiteral("mapcodes.mdb-journal")));
    for (const auto& [name, bytes] : left) {
        QFile file(book.path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    startToSignIn();
    signInAsSofia();
    EXPECT_NE(shownWindow(mainWindow), nullptr);
}

TEST_F(SignInTest, endsByItsButtonAndItsFrameButNotByEscape)
{
    startToSignIn();
    Driver(loginWindow()).press(Qt::Key_Escape);
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_TRUE(endsIn([] { Driver(loginWindow()).click(Driver(loginWindow()).command(1)); }));
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
        ASSERT_NE(shownWindow(mainWindow), nullptr);
        EXPECT_TRUE(Driver(*shownWindow(mainWindow)).command(8).isVisible()) << "the user's right to close the cash";
        shownWindow(mainWindow)->close();
    }));
    EXPECT_EQ(files().at(QStringLiteral("lorvan.dat")).front(), '0');
}

} // namespace lorvan::test
