#include "backup/book_backup.h"
#include "backup/daily_backup.h"
#include "backup/second_place.h"
#include "backup/steady_copy.h"
#include "books/book_from_backup.h"
#include "books/older_book.h"
#include "csv/open_book_exchange.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_book.h"
#include "platform/authority.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/files/file_lock.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"
#include "proof/open_book_check.h"
#include "reports/report_building.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include <csignal>
#include <functional>
#include <iostream>
#include <memory>

// A command that is asked to end does so within a second, wherever it is, and leaves everything as it was.

namespace lorvan::test {
namespace {

constexpr qint64 mostMilliseconds = 3000; // of a busy machine; the waits that are cut short take five seconds and more

/// Whatever keeps a command waiting, for as long as it lives.
using Obstacle = std::shared_ptr<void>;

class StopTest : public CommandTest {
protected:
    void makeBackup() const { ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done); }

    /// Ends a command that meets the obstacle, when it is under way for so many milliseconds. The files are looked at
    /// before and afterwards: to close one would give back this process's locks on it.
    void stop(const char* line, unsigned long after, const std::function<Obstacle()>& make = {})
    {
        const auto before = contents();
        {
            const Obstacle obstacle = make ? make() : nullptr;
            stopCommand(line, after);
        }
        QFile::remove(words("@/restore.pending"));
        EXPECT_TRUE(contents() == before) << line;
    }

private:
    /// By each signal in turn that asks for it.
    void stopCommand(const char* line, unsigned long after)
    {
        static constexpr int signals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE};
        QProcess command;
        command.setChildProcessModifier([] { // some are ignored in a shell's background
            for (const int each : signals)
                std::signal(each, SIG_DFL);
        });
        command.start(QCoreApplication::applicationDirPath() + "/lorvan-data", words(line).split(u'|'));
        ASSERT_TRUE(command.waitForStarted());
        QThread::msleep(after);
        QElapsedTimer timer;
        timer.start();
        ::kill(static_cast<pid_t>(command.processId()), signals[m_stopped++ % std::size(signals)]);
        ASSERT_TRUE(command.waitForFinished()) << line;
        const qint64 taken = timer.elapsed();
        const QByteArray said = command.readAllStandardError();
        EXPECT_LT(taken, mostMilliseconds) << line;
        EXPECT_EQ(command.exitStatus(), QProcess::NormalExit) << line;
        EXPECT_EQ(command.exitCode(), 2) << line << '\n' << said.toStdString();
        EXPECT_TRUE(said.contains("διακόπηκε")) << line << '\n' << said.toStdString();
        std::cout << line << ": " << taken << " ms\n";
    }

    unsigned m_stopped = 0;
};

/// A connection of another program that shuts a database.
Obstacle shut(const QString& database)
{
    struct Shut {
        explicit Shut(const QString& path)
            : connection(openAt(path))
            , transaction(connection, Transaction::View::Alone)
        {
        }
        Connection connection;
        Transaction transaction;
    };
    return std::make_shared<Shut>(database);
}

} // namespace

TEST_F(StopTest, whileACommandWaits)
{
    makeBackup();
    writeFile(words("#/csv/omades.csv"), "aa,perigrafh\n7,x\n");
    for (const char* name : {"/lorvan.mdb", "/mapcodes.mdb"})
        writeFile(words("#/older") + QLatin1String(name), readFile(olderBook("v1") + QLatin1String(name)));

    const auto lock = [this](const char* name) -> Obstacle {
        return std::make_shared<FileLock>(Folder(book.folder()), QLatin1String(name));
    };
    const auto journal = [this]() -> Obstacle {
        const QString left = book.files().mainDatabase() + "-journal";
        writeFile(left, QByteArray(4096, 'x'));
        writeFile(book.files().usageMarker(), QByteArray("1BOSS").leftJustified(51));
        return std::shared_ptr<void>(nullptr, [this, left](void*) {
            QFile::remove(left);
            writeFile(book.files().usageMarker(), QByteArray("0").leftJustified(51));
        });
    };
    const struct {
        const char* what;
        std::function<Obstacle()> make;
        std::vector<const char*> lines;
    } cases[] = {
        {"another finishes a restore", [&] { return lock("restore.pending"); },
            {"create|@", "demo|@", "import|#/older|@", "check|@", "check|@|--repair", "export|@|#/new",
                "import-csv|@|#/csv", "backup|@|#/b.tar", "restore|#/a.tar|@|--replace"}},
        {"the marker is locked", [&] { return lock("lorvan.dat"); },
            {"check|@|--repair", "import-csv|@|#/csv", "restore|#/a.tar|@|--replace"}},
        {"the main database is shut", [&] { return shut(book.files().mainDatabase()); },
            {"check|@", "check|@|--repair", "export|@|#/new", "import-csv|@|#/csv", "backup|@|#/b.tar"}},
        {"the auxiliary database is shut", [&] { return shut(book.files().auxiliaryDatabase()); },
            {"check|@", "check|@|--repair", "export|@|#/new", "import-csv|@|#/csv", "backup|@|#/b.tar"}},
        {"a journal stands", journal, {"check|@", "export|@|#/new", "backup|@|#/b.tar"}},
    };
    for (const auto& [what, make, lines] : cases) {
        SCOPED_TRACE(what);
        for (const char* line : lines)
            stop(line, 250, make);
    }
    stop("create|#/new|--user|x", 300); // waits for a password
}

TEST_F(StopTest, whileACommandWorksOnALargeBook)
{
    book.execute("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<399999)"
                 " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, grammh)"
                 " SELECT 100, 20200101+i%28, 'είσπραξη από πελάτη ' || i, 10000, 0, hex(zeroblob(40)) FROM n");
    makeBackup();
    writeFile(words("#/csv/kinhseis.csv"),
        "kvdikos,hmeromhnia,perigrafh,esoda,ejoda\n" + QByteArray("100,2024-03-14,a,5.00,\n").repeated(400'000));
    for (const char* line : {"check|@", "check|@|--repair", "export|@|#/new", "import-csv|@|#/csv", "backup|@|#/b.tar",
             "restore|#/a.tar|@|--replace"})
        stop(line, 300);
}

/// Whoever follows long work is asked once, for all of it, and whoever says no then finds everything as it was; only a
/// backup that was made first may be there.
TEST_F(StopTest, orOnceMoreBeforeTheDecision)
{
    for (const char* name : {"/lorvan.mdb", "/mapcodes.mdb"})
        writeFile(words("#/older") + QLatin1String(name), readFile(olderBook("v1") + QLatin1String(name)));
    writeFile(words("#/csv/omades.csv"), "aa,perigrafh\n7,x\n");
    writeFile(words("#/stick/x"), {});
    makeBackup();
    const SecondPlace stick(book.files(), SettingsStore(words("#/settings.ini")));
    stick.choose(words("#/stick"));
    const Authority authority = Authority::administrator(fixedClock());
    const auto none = [](qint64, qint64) {};
    const struct {
        const char* what;
        std::function<void()> work;
    } works[] = {
        {"backup", [&] { (void)makeBackupByHand(book.files(), testKeys(), authority.now(), none); }},
        {"export", [&] { (void)exportOpenBook(book.files(), testKeys(), words("#"), authority.now(), none); }},
        {"import",
            [&] {
                (void)importAsAdministrator(book.files(), fixedClock(), words("#/csv"), TakenBefore::Refuse, none);
            }},
        {"repair", [&] { (void)repairOpenBook(book.files(), testKeys(), authority, none); }},
        {"older book",
            [&] {
                JetDamage damage(JetDamage::Answer::Refuse);
                (void)importOlderBook(LegacyFiles(words("#/older")), words("#/taken"), damage, none);
            }},
        {"restore", [&] { (void)restoreBook(words("#/a.tar"), book.files(), authority, none); }},
    };
    const auto withoutBackups = [this] {
        auto all = contents();
        std::erase_if(all, [](const auto& entry) { return entry.first.startsWith("backup/"); });
        return all;
    };
    for (const auto& [what, work] : works) {
        SCOPED_TRACE(what);
        const auto before = withoutBackups();
        {
            const WorkWatch late([](const QString&) {}, [] { return false; });
            EXPECT_THROW(work(), GivenUp);
        }
        EXPECT_TRUE(withoutBackups() == before);
        int asked = 0;
        const WorkWatch watch([](const QString&) {}, [&asked] { return ++asked > 0; });
        work();
        EXPECT_EQ(asked, 1);
    }
    const WorkWatch late([](const QString&) {}, [] { return false; });
    const MadeBackup made = makeBackups(book.files(), testKeys(), authority.now(), stick, none);
    EXPECT_TRUE(made.isSecondGivenUp && QFile::exists(made.path)) << "the first one is made and stays";
    EXPECT_EQ(QDir(words("#/stick")).entryList(QDir::Files | QDir::Hidden), QStringList("x"));
}

TEST_F(StopTest, whileAWindowsWorkWaits)
{
    const Obstacle obstacle = shut(book.files().mainDatabase());
    QElapsedTimer timer;
    const auto goesOn = [&timer] { return timer.elapsed() < 300; };
    ReportRequest request;
    request.report = Report::CodeList;
    timer.start();
    EXPECT_THROW((void)buildReport(request, book.files(), testKeys(), [&](int) { return goesOn(); }), SqlError);
    EXPECT_LT(timer.restart(), mostMilliseconds);
    const StopCheck stop(goesOn);
    EXPECT_THROW((void)makeDailyBackup(book.files(), testKeys(), fixedClock().now()), GivenUp);
    EXPECT_LT(timer.elapsed(), mostMilliseconds);
}

} // namespace lorvan::test
