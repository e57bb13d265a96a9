#include "book/path_file.h"
#include "platform/files/file_calls.h"
#include "platform/stop_check.h"
#include "platform/windows1253.h"
#include "support/interruption.h"
#include "support/mount.h"
#include "support/progress_bar.h"
#include "tools/tool_run.h"

#include <cerrno>
#include <csignal>

#include <sstream>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18); // a Wednesday

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
        expectParts(run.errors, {message});
        EXPECT_EQ(run.out, "") << line;
        EXPECT_EQ(contentOf(folder.path()), before) << line;
    }
}

TEST_F(CommandTest, aBookThatDoesNotFitLeavesNothingBehind)
{
    if (!Mount::smallDisk(beside.path()))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    EXPECT_EQ(run("demo|#/a/b").status, ExitStatus::Failed);
    EXPECT_TRUE(contentOf(beside.path()).empty());
    Mount::undo(beside.path());
}

TEST(PathCommand, putsTheFolderInFrontOfColourAndHeading)
{
    QTemporaryDir program;
    QTemporaryDir folder;
    const QString data = folder.filePath("Ταμείο, 2026");
    QDir().mkpath(data);
    writeFile(program.filePath("Diadromh.Dat"), toWindows1253(u"\"C:\\παλιά\",12632256,\"Υποκατάστημα, Β\"\r\n"));
    const QString roundabout = data + "/../Ταμείο, 2026/.";
    ASSERT_EQ(runTool(someDay, "path|" + roundabout, {}, program.path()).status, ExitStatus::Done);

    const DataFolderSettings settings = PathFile(program.path()).read();
    EXPECT_EQ(settings.dataFolder, QDir(data).canonicalPath());
    EXPECT_EQ(settings.backgroundColour, 12632256);
    EXPECT_EQ(settings.heading, "Υποκατάστημα, Β");
    EXPECT_EQ(contentOf(program.path()).size(), 1u);
}

TEST(Tool, noNameSteersTheTerminal)
{
    const ToolRun run = runTool(QDate(2024, 3, 20), "check|/tmp/no\x1b[2J\u009b\u202e\x07\x7f\rx");
    EXPECT_EQ(run.status, ExitStatus::Failed);
    for (const char* const each : {"\x1b", "\u009b", "\u202e", "\x07", "\x7f", "\r"})
        EXPECT_EQ(run.errors.find(each), std::string::npos) << run.errors;
    expectParts(run.errors, {"no\\x1b[2J\\x9b\\u{202e}\\x07\\x7f\\x0dx"});
}

TEST_F(CommandTest, whatTheDiskDoesNotConfirmIsDoneAndToldAndNotStatusZero)
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
    NoSyncAfterARename failing;
    FileCalls::replace(&failing);
    const ToolRun exported = run("export|@|#/out");
    FileCalls::replace(nullptr);
    EXPECT_EQ(exported.status, ExitStatus::Found);
    expectParts(exported.errors, {"δεν επιβεβαίωσε"});
    EXPECT_TRUE(QFile::exists(words("#/out/kinhseis.csv")));
}

TEST(ProgressBar, fitsTheTerminalAndIsSilentWithoutOne)
{
    constexpr std::chrono::milliseconds atOnce{0};
    const struct {
        int columns;
        std::int64_t done, whole;
        std::string drawn;
        std::chrono::milliseconds interval = atOnce;
    } cases[] = {
        {30, 1, 2, "Κινήσεις [######.......]  50%"}, {30, 9, 3, "Κινήσεις [#############] 100%"},
        {30, 5, 0, "Κινήσεις"}, {10, 1, 4, "Κινή  25%"}, {0, 1, 2, ""},
        {30, 1, 2, "", std::chrono::hours(1)}, // work that is soon done
    };
    for (const auto& [columns, done, whole, drawn, interval] : cases) {
        std::ostringstream out;
        std::ostringstream errors;
        const ToolContext context{out, errors, {}, Clock(), {}, columns};
        const std::string erase = "\r\x1b[K";
        ProgressBar(context, "Κινήσεις", interval).show(done, whole);
        EXPECT_EQ(errors.str(), drawn.empty() ? "" : erase + drawn + erase);
    }
    for (const auto& [columns, line] :
        {std::pair(70, "Κινήσεις [###############...............]  50%, ακόμη περίπου 2 λεπτά"),
            {40, "Κινήσεις [###########............]  50%"}})
        EXPECT_EQ(progressLine("Κινήσεις", 50, "ακόμη περίπου 2 λεπτά", columns).toStdString(), line);
}

TEST(ProgressBar, tellsStepsAndTheDecisionAfterWhichSignalsWait)
{
    std::ostringstream out;
    std::ostringstream errors;
    const ToolContext context{out, errors, {}, Clock(), {}, 60};
    const Interruption interruption;
    {
        ProgressBar bar(context, "α", std::chrono::milliseconds(0));
        bar.show(1, 2);
        beginStep("Ένα βήμα…");
        {
            const PartOfWork part("Αντίγραφο…");
            beginStep("κρυφό");
            decideOrGiveUp();
        }
        decideOrGiveUp();
        ::raise(SIGTERM);
        EXPECT_FALSE(Interruption::hasCome());
        decideOrGiveUp();
    }
    EXPECT_TRUE(Interruption::hasCome()) << "the next work does not begin";
    expectParts(errors.str(), {"Ένα βήμα…", "Αντίγραφο…", "δεν διακόπτεται πια"});
    EXPECT_EQ(errors.str().find("κρυφό"), std::string::npos);
    ProgressBar bar(context, "β");
    EXPECT_THROW(decideOrGiveUp(), GivenUp);
}

} // namespace lorvan::test
