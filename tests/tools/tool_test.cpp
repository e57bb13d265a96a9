#include "app/path_file.h"
#include "platform/windows1253.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"
#include "users/sign_in.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18); // a Wednesday

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct RefusedCase {
    const char* name;
    QStringList arguments; ///< "@" stands for the test's folder.
    QString password;
    const char* message;
};

void PrintTo(const RefusedCase& refused, std::ostream* out)
{
    *out << refused.name;
}

class RefusedCommand : public testing::TestWithParam<RefusedCase> { };

/// The folder holds one file of a book in each of "main", "users" and "marker", and a plain file "file".
TEST_P(RefusedCommand, SaysWhyAndChangesNothing)
{
    QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral("日本"));
    QDir(folder.path()).mkpath(QStringLiteral("blank "));
    writeFile(folder.filePath(QStringLiteral("file")), "x");
    for (const QString& name : {QStringLiteral("main/lorvan.mdb"), QStringLiteral("users/mapcodes.mdb"),
             QStringLiteral("marker/lorvan.dat")}) {
        QDir(folder.path()).mkpath(name.section(u'/', 0, 0));
        writeFile(folder.filePath(name), "kept");
    }
    const FolderContent before = contentOf(folder.path());

    QStringList arguments = GetParam().arguments;
    arguments.replaceInStrings(QStringLiteral("@"), folder.path());
    const ToolRun run = runToolOn(someDay, arguments, GetParam().password, folder.path());

    EXPECT_EQ(run.status, ExitStatus::Failed);
    EXPECT_NE(run.errors.find(GetParam().message), std::string::npos) << run.errors;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(contentOf(folder.path()), before);
}

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(u'|');
}

INSTANTIATE_TEST_SUITE_P(Table, RefusedCommand,
    testing::Values(RefusedCase{"create_main_database_exists", words("create|@/main"), {}, "main/lorvan.mdb"},
        RefusedCase{"create_users_exist", words("create|@/users|--user|Α"), QStringLiteral("1"), "users/mapcodes.mdb"},
        RefusedCase{"create_marker_exists", words("create|@/marker"), {}, "marker/lorvan.dat"},
        RefusedCase{"demo_main_database_exists", words("demo|@/main"), {}, "main/lorvan.mdb"},
        RefusedCase{"demo_marker_exists", words("demo|@/marker"), {}, "marker/lorvan.dat"},
        RefusedCase{"create_in_a_file", words("create|@/file/book"), {}, "file/book δεν γράφονται"},
        RefusedCase{"create_over_a_file", words("create|@/file"), {}, "/file δεν γράφονται"},
        RefusedCase{"blank_user", words("create|@/new/book|--user|  "), QStringLiteral("1"), "όνομα του χρήστη"},
        RefusedCase{"blank_password", words("create|@/new/book|--user=Α"), QStringLiteral(" "), "κωδικός του χρήστη"},
        RefusedCase{"no_folder", words("create"), {}, "Λείπει"},
        RefusedCase{"empty_folder_name", words("create|"), {}, "Λείπει"},
        RefusedCase{"two_folders", words("create|@/a|@/b"), {}, "Περισσεύει"},
        RefusedCase{"unknown_option", words("demo|--size=9|@/a"), {}, "Άγνωστη επιλογή"},
        RefusedCase{"seed_is_no_number", words("demo|@/a|--seed|-1"), {}, "δεν είναι αριθμός"},
        RefusedCase{"seed_without_value", words("demo|@/a|--seed"), {}, "λείπει η τιμή"},
        RefusedCase{"unknown_command", words("destroy|@/main"), {}, "Άγνωστη εντολή"},
        RefusedCase{"path_to_no_folder", words("path|@/nowhere"), {}, "Δεν υπάρχει φάκελος"},
        RefusedCase{"path_beyond_the_code_page", words("path|@/日本"), {}, "Windows-1253"},
        RefusedCase{"path_with_blank_end", words("path|@/blank "), {}, "τελειώνει σε κενό"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CreateCommand, MakesFoldersAnEmptyBookAndItsFirstUser)
{
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("υπο/βιβλίο"));
    const auto run =
        runToolOn(someDay, {QStringLiteral("create"), target, QStringLiteral("--user"), QStringLiteral(" ΆΝΝΑ ")},
            QStringLiteral("κλειδί"));
    ASSERT_EQ(run.status, ExitStatus::Done) << run.errors;
    EXPECT_EQ(run.out.find("κλειδί"), std::string::npos);

    const BookFiles files(target);
    EXPECT_EQ(QDir(target).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
        (QStringList{QStringLiteral("lorvan.dat"), QStringLiteral("lorvan.mdb"), QStringLiteral("mapcodes.mdb")}));
    EXPECT_EQ(readFile(files.usageMarker()), '0' + QByteArray(50, ' '));
    Connection main = Connection::open(files.mainDatabase(), testKeys().keyFor(files.mainDatabase()));
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QStringLiteral("3"));
    EXPECT_EQ(
        valueOf(main, "SELECT (SELECT count(*) FROM kinhseis) + (SELECT count(*) FROM kvdikoi)"), QStringLiteral("0"));
    Connection users = Connection::open(files.auxiliaryDatabase(), testKeys().keyFor(files.auxiliaryDatabase()));
    const auto session = signIn(users, QStringLiteral("ΆΝΝΑ"), QStringLiteral("κλειδί"));
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->rights.modifyCash && session->rights.closeCash && session->rights.modifyCodes);
}

TEST(CreateCommand, WithoutUserLeavesThemToTheAdministrator)
{
    QTemporaryDir folder;
    ASSERT_EQ(runToolOn(someDay, {QStringLiteral("create"), folder.path()}).status, ExitStatus::Done);
    const QString path = BookFiles(folder.path()).auxiliaryDatabase();
    Connection users = Connection::open(path, testKeys().keyFor(path));
    EXPECT_EQ(valueOf(users, "SELECT count(*) FROM codes"), QStringLiteral("0"));
}

/// Files of this process cannot grow beyond a size while the object lives, as on a disk that runs full.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit m_before{};
};

TEST(BookMaking, LeavesNothingBehindWhenTheDiskRunsFull)
{
    struct Row {
        const char* command;
        rlim_t bytes;
    };
    for (const auto& [command, bytes] : {Row{"create", 20}, Row{"create", 3'000}, Row{"demo", 300'000}}) {
        QTemporaryDir folder;
        const QString target = folder.filePath(QStringLiteral("a/b"));
        const SmallDisk disk(bytes);
        const ToolRun run = runToolOn(someDay, {QString::fromLatin1(command), target});
        EXPECT_EQ(run.status, ExitStatus::Failed) << command << ' ' << bytes;
        EXPECT_TRUE(contentOf(folder.path()).empty()) << command << ' ' << bytes;
    }
}

TEST(PathCommand, PutsTheFolderInFrontOfColourAndHeading)
{
    QTemporaryDir program;
    QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("Ταμείο, 2026"));
    QDir().mkpath(data);
    writeFile(program.filePath(QStringLiteral("Diadromh.Dat")),
        toWindows1253(u"\"C:\\παλιά\",12632256,\"Υποκατάστημα, Β\"\r\n"));

    const QString roundabout = data + QStringLiteral("/../Ταμείο, 2026/.");
    ASSERT_EQ(runToolOn(someDay, {QStringLiteral("path"), roundabout}, {}, program.path()).status, ExitStatus::Done);

    const DataFolderSettings settings = PathFile(program.path()).read();
    EXPECT_EQ(settings.dataFolder, QDir(data).canonicalPath());
    EXPECT_EQ(settings.backgroundColour, 12632256);
    EXPECT_EQ(settings.heading, QStringLiteral("Υποκατάστημα, Β"));
    EXPECT_EQ(contentOf(program.path()).size(), 1u);
}

} // namespace
} // namespace lorvan::test
