#include "book/path_file.h"
#include "platform/files/file_calls.h"
#include "platform/windows1253.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"
#include "users/sign_in.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

#include <csignal>
#include <sys/resource.h>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18); // a Wednesday

void writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
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

} // namespace

TEST(Tool, refusesSayingWhyAndChangesNothing)
{
    QTemporaryDir folder;
    for (const char* const name :
        {"日本/a", "blank /a", "file", "main/lorvan.mdb", "users/mapcodes.mdb", "marker/lorvan.dat"})
        writeFile(folder.filePath(QString::fromUtf8(name)), "kept");
    const auto before = contentOf(folder.path());
    struct {
        const char* commandLine; ///< "@" stands for the folder.
        const char* message;
        const char* password = "1";
    } const cases[] = {
        {"create|@/main", "main/lorvan.mdb"},
        {"create|@/users|--user|Α", "users/mapcodes.mdb"},
        {"create|@/marker", "marker/lorvan.dat"},
        {"demo|@/main", "main/lorvan.mdb"},
        {"create|@/file/book", "file/book δεν γράφονται"},
        {"create|@/file", "/file δεν γράφονται"},
        {"create|@/new/book|--user|  ", "όνομα του χρήστη"},
        {"create|@/new/book|--user=Α", "κωδικός του χρήστη", " "},
        {"create", "Λείπει"},
        {"create|", "Λείπει"},
        {"create|@/a|@/b", "Περισσεύει"},
        {"demo|--size=9|@/a", "Άγνωστη επιλογή"},
        {"demo|@/a|--seed|-1", "δεν είναι αριθμός"},
        {"demo|@/a|--seed", "λείπει η τιμή"},
        {"destroy|@/main", "Άγνωστη εντολή"},
        {"path|@/nowhere", "Δεν υπάρχει φάκελος"},
        {"path|@/日本", "Windows-1253"},
        {"path|@/blank ", "τελειώνει σε κενό"},
    };
    for (const auto& [line, message, password] : cases) {
        const QString command = QString::fromUtf8(line).replace(u'@', folder.path());
        const ToolRun run = runTool(someDay, command, QString::fromUtf8(password), folder.path());
        EXPECT_EQ(run.status, ExitStatus::Failed) << line;
        EXPECT_NE(run.errors.find(message), std::string::npos) << line << run.errors;
        EXPECT_EQ(run.out, "") << line;
        EXPECT_EQ(contentOf(folder.path()), before) << line;
    }
}

TEST(CreateCommand, makesFoldersAnEmptyBookAndItsFirstUser)
{
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("υπο/βιβλίο"));
    const QString password = QStringLiteral("κλειδί");
    const auto run = runTool(someDay, QStringLiteral("create|%1|--user| ΆΝΝΑ ").arg(target), password);
    ASSERT_EQ(run.status, ExitStatus::Done) << run.errors;
    EXPECT_FALSE(QString::fromStdString(run.out + run.errors).contains(password));

    auto content = contentOf(target);
    EXPECT_EQ(content.size(), 3u);
    EXPECT_EQ(content[QStringLiteral("lorvan.dat")], '0' + QByteArray(50, ' '));
    const BookFiles files(target);
    Connection main =
        Connection::open(files.mainDatabase(), testKeys().keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QStringLiteral("3"));
    EXPECT_EQ(
        valueOf(main, "SELECT (SELECT count(*) FROM kinhseis) + (SELECT count(*) FROM kvdikoi)"), QStringLiteral("0"));
    Connection users = Connection::open(
        files.auxiliaryDatabase(), testKeys().keyFor(files.auxiliaryDatabase()), Connection::Access::ReadWrite);
    const auto session = signIn(users, QStringLiteral("ΆΝΝΑ"), password);
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->rights.modifyCash && session->rights.closeCash && session->rights.modifyCodes);
}

TEST(BookMaking, leavesNothingBehindWhenTheDiskRunsFull)
{
    for (const auto& [command, bytes] :
        {std::pair("create|%1", 20), std::pair("create|%1", 3'000), std::pair("demo|%1", 300'000)}) {
        QTemporaryDir folder;
        const SmallDisk disk(static_cast<rlim_t>(bytes));
        const auto run = runTool(someDay, QString::fromLatin1(command).arg(folder.filePath(QStringLiteral("a/b"))));
        EXPECT_EQ(run.status, ExitStatus::Failed) << command << ' ' << bytes;
        EXPECT_TRUE(contentOf(folder.path()).empty()) << command << ' ' << bytes;
    }
}

TEST(PathCommand, putsTheFolderInFrontOfColourAndHeading)
{
    QTemporaryDir program;
    QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("Ταμείο, 2026"));
    QDir().mkpath(data);
    writeFile(program.filePath(QStringLiteral("Diadromh.Dat")),
        toWindows1253(u"\"C:\\παλιά\",12632256,\"Υποκατάστημα, Β\"\r\n"));
    const QString roundabout = data + QStringLiteral("/../Ταμείο, 2026/.");
    ASSERT_EQ(runTool(someDay, QStringLiteral("path|") + roundabout, {}, program.path()).status, ExitStatus::Done);

    const DataFolderSettings settings = PathFile(program.path()).read();
    EXPECT_EQ(settings.dataFolder, QDir(data).canonicalPath());
    EXPECT_EQ(settings.backgroundColour, 12632256);
    EXPECT_EQ(settings.heading, QStringLiteral("Υποκατάστημα, Β"));
    EXPECT_EQ(contentOf(program.path()).size(), 1u);
}

TEST(Tool, noNameSteersTheTerminal)
{
    const ToolRun run = runTool(QDate(2024, 3, 20), QStringLiteral("check|/tmp/no\x1b[2J\u009b\u202e\x07\x7f\rx"));
    EXPECT_EQ(run.status, ExitStatus::Failed);
    for (const char* const each : {"\x1b", "\u009b", "\u202e", "\x07", "\x7f", "\r"})
        EXPECT_EQ(run.errors.find(each), std::string::npos) << run.errors;
    EXPECT_NE(run.errors.find("no\\x1b[2J\\x9b\\u{202e}\\x07\\x7f\\x0dx"), std::string::npos) << run.errors;
}

TEST(Tool, whatTheDiskDoesNotConfirmIsDoneAndToldAndNotStatusZero)
{
    class NoSyncAfterARename : public FileCalls {
        int renameAt(int from, const char* name, int to, const char* newName, unsigned flags) override
        {
            m_failing = true;
            return FileCalls::renameAt(from, name, to, newName, flags);
        }
        int sync(int descriptor) override
        {
            errno = EIO;
            return m_failing ? -1 : FileCalls::sync(descriptor);
        }
        bool m_failing = false;
    };
    const TemporaryBook book;
    const QTemporaryDir place;
    NoSyncAfterARename failing;
    FileCalls::replace(&failing);
    const ToolRun run = runTool(
        QDate(2024, 3, 20), QStringLiteral("export|%1|%2").arg(book.folder(), place.filePath(QStringLiteral("out"))));
    FileCalls::replace(nullptr);
    EXPECT_EQ(run.status, ExitStatus::Found);
    EXPECT_NE(run.errors.find("δεν επιβεβαίωσε"), std::string::npos) << run.errors;
    EXPECT_TRUE(QFile::exists(place.filePath(QStringLiteral("out/kinhseis.csv"))));
}

} // namespace lorvan::test
