#include "backup/daily_backup.h"
#include "backup/steady_copy.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/files/file_lock.h"
#include "reports/report_building.h"
#include "support/temporary_book.h"
#include "tools/legacy/older_books.h"
#include "tools/tool_run.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <iostream>
#include <memory>

// A command that is asked to end does so within a second, wherever it is, and leaves everything as it was.

namespace lorvan::test {
namespace {

constexpr qint64 mostMilliseconds = 3000; // of a busy machine; the waits that are cut short take five seconds and more
const QDate someDay(2024, 3, 15);

/// Whatever keeps a command waiting, for as long as it lives.
using Obstacle = std::shared_ptr<void>;

class StopTest : public testing::Test {
protected:
    /// "@" stands for the book's folder, "#" for one beside it.
    [[nodiscard]] QStringList words(const char* line) const
    {
        return QString::fromUtf8(line).replace(u'@', book.folder()).replace(u'#', beside.path()).split(u'|');
    }
    /// All but the marker, which bears a name once it was claimed.
    [[nodiscard]] std::map<QString, QByteArray> contents() const
    {
        auto all = contentOf(beside.path());
        all.merge(contentOf(book.folder()));
        all.erase(QStringLiteral("lorvan.dat"));
        return all;
    }

    /// Ends a command that meets the obstacle, when it is under way for so many milliseconds. The files are looked at
    /// before and afterwards: to close one would give back this process's locks on it.
    void stop(const char* line, unsigned long after, const std::function<Obstacle()>& make = {}) const
    {
        const auto before = contents();
        {
            const Obstacle obstacle = make ? make() : nullptr;
            stopCommand(line, after);
        }
        QFile::remove(book.path(QStringLiteral("restore.pending")));
        EXPECT_TRUE(contents() == before) << line;
        EXPECT_TRUE(fileContent(book.files().usageMarker()).startsWith('0')) << line;
    }

    const TemporaryBook book;
    const QTemporaryDir beside;

private:
    void stopCommand(const char* line, unsigned long after) const
    {
        QProcess command;
        command.start(QCoreApplication::applicationDirPath() + QStringLiteral("/lorvan-data"), words(line));
        ASSERT_TRUE(command.waitForStarted());
        QThread::msleep(after);
        QElapsedTimer timer;
        timer.start();
        ::kill(static_cast<pid_t>(command.processId()), SIGTERM);
        ASSERT_TRUE(command.waitForFinished()) << line;
        const qint64 taken = timer.elapsed();
        const QByteArray said = command.readAllStandardError();
        EXPECT_LT(taken, mostMilliseconds) << line;
        EXPECT_EQ(command.exitStatus(), QProcess::NormalExit) << line;
        EXPECT_EQ(command.exitCode(), 2) << line << '\n' << said.toStdString();
        EXPECT_TRUE(said.contains("διακόπηκε")) << line << '\n' << said.toStdString();
        std::cout << line << ": " << taken << " ms\n";
    }
};

/// A connection of another program that shuts a database.
Obstacle shut(const QString& database)
{
    struct Shut {
        explicit Shut(const QString& path)
            : connection(Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite))
            , transaction(connection, Transaction::Mode::Exclusive)
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
    ASSERT_EQ(runTool(someDay, QStringLiteral("backup|%1|%2/a.tar").arg(book.folder(), beside.path())).status,
        ExitStatus::Done);
    QDir(beside.path()).mkdir(QStringLiteral("csv"));
    QFile csv(beside.filePath(QStringLiteral("csv/omades.csv")));
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly) && csv.write("aa,perigrafh\n7,x\n") > 0);
    csv.close();
    QDir().mkpath(beside.filePath(QStringLiteral("older")));
    for (const char* name : {"/lorvan.mdb", "/mapcodes.mdb"})
        ASSERT_TRUE(QFile::copy(olderBook(QStringLiteral("v1")) + QLatin1String(name),
            beside.filePath(QStringLiteral("older")) + QLatin1String(name)));

    const auto lock = [this](const char* name) -> Obstacle {
        return std::make_shared<FileLock>(Folder(book.folder()), QLatin1String(name));
    };
    const auto journal = [this]() -> Obstacle {
        QFile file(book.files().mainDatabase() + QStringLiteral("-journal"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(QByteArray(4096, 'x')) > 0);
        QFile held(book.files().usageMarker());
        EXPECT_TRUE(held.open(QIODevice::WriteOnly) && held.write(QByteArray("1BOSS").leftJustified(51)) > 0);
        return std::shared_ptr<void>(nullptr, [this, free = QByteArray("0").leftJustified(51)](void*) {
            QFile::remove(book.files().mainDatabase() + QStringLiteral("-journal"));
            QFile marker(book.files().usageMarker());
            EXPECT_TRUE(marker.open(QIODevice::WriteOnly) && marker.write(free) > 0);
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
    ASSERT_EQ(runTool(someDay, QStringLiteral("backup|%1|%2/a.tar").arg(book.folder(), beside.path())).status,
        ExitStatus::Done);
    ASSERT_TRUE(QDir(beside.path()).mkdir(QStringLiteral("csv")));
    QFile csv(beside.filePath(QStringLiteral("csv/kinhseis.csv")));
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write("kvdikos,hmeromhnia,perigrafh,esoda,ejoda\n");
    for (int i = 0; i < 400'000; ++i)
        csv.write("100,2024-03-14,a,5.00,\n");
    csv.close();
    for (const char* line : {"check|@", "check|@|--repair", "export|@|#/new", "import-csv|@|#/csv", "backup|@|#/b.tar",
             "restore|#/a.tar|@|--replace"})
        stop(line, 300);
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
    EXPECT_THROW((void)makeDailyBackup(book.files(), testKeys(), fixedClock().now(), goesOn), GivenUp);
    EXPECT_LT(timer.elapsed(), mostMilliseconds);
}

} // namespace lorvan::test
