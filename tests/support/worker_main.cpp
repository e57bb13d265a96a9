// The process that tests start beside themselves, to work on the same book. What it has done it appends to a log line
// by line.
//
//   lorvan_test_worker pairs   DIR LOG COUNT           so many movements and closed days, four in each transaction
//   lorvan_test_worker typing  DIR LOG MILLISECONDS    random changes where locks do nothing, with moments between them
//   lorvan_test_worker looking DIR LOG MILLISECONDS    reads a book all that time in each of the ways, locks or not
//   lorvan_test_worker marker  DIR LOG HOST ROUNDS     claims and releases the marker, changing the book now and then

#include "backup/steady_copy.h"
#include "book/lock_trust.h"
#include "book/opened_book.h"
#include "cashbook/movement_batch.h"
#include "codes/code_catalogue.h"
#include "codes/group_maintenance.h"
#include "commands/findings_text.h"
#include "marker/usage_marker.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"
#include "platform/machine_identity.h"
#include "proof/book_check.h"
#include "support/random_changes.h"
#include "support/temporary_book.h"
#include "support/vain_locks.h"
#include "support/worker_log.h"
#include "users/sign_in.h"
#include "users/user_accounts.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <sqlite3.h>
#include <sstream>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace lorvan::test {
namespace {

/// In place of the engine's fcntl().
int lockInVain(int descriptor, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (command == F_GETLK)
        static_cast<struct flock*>(argument)->l_type = F_UNLCK;
    const bool isLock = command == F_GETLK || command == F_SETLK || command == F_SETLKW;
    return isLock ? 0 : ::fcntl(descriptor, command, argument);
}

/// The same for the engine's locks, in this process for good.
void makeEngineLocksVain()
{
    sqlite3_initialize();
    sqlite3_vfs* const files = sqlite3_vfs_find("unix");
    files->xSetSystemCall(files, "fcntl", reinterpret_cast<sqlite3_syscall_ptr>(lockInVain));
}

Book openBook(const BookFiles& files)
{
    return {openAt(files.mainDatabase()), openAt(files.auxiliaryDatabase())};
}

/// Movements, closed days and a balance go up together.
int changeBothFiles(const BookFiles& files, WorkerLog& log, int count)
{
    const FileKey auxiliaryKey = testKeys().keyFor(files.auxiliaryDatabase());
    Connection book = openAt(files.mainDatabase());
    book.attach(files.auxiliaryDatabase(), auxiliaryKey, "auxiliary");
    book.execute("INSERT INTO tameio (hmeromhnia, ypoloipo) VALUES (20240315, 0)");
    log.append("ready");
    for (int i = 0; i < count; i += 4) {
        Transaction transaction(book, byAll());
        for (int row = 0; row < 4; ++row)
            book.execute("INSERT INTO kinhseis (kvdikos, hmeromhnia) VALUES (100, 20240315);"
                         "INSERT INTO auxiliary.klhsimotameioy (hmeraklhsimatos) VALUES (20240315);"
                         "UPDATE tameio SET ypoloipo=ypoloipo+1");
        transaction.commit();
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // even a quick typist leaves moments
    }
    log.append("done");
    return 0;
}

/// So many days that a change rewrites pages for longer than a moment, and a reading takes as long.
void fillDays(Book& book, WorkerLog& log)
{
    constexpr int days = 1200;
    std::string lines;
    MovementBatch batch(book.main(), book.auxiliary(), by());
    Transaction writing(book.main(), byAll());
    for (int i = 0; i < days; ++i) {
        const QDate day = QDate(2024, 3, 1).addDays(i);
        (void)batch.add(incomeOf(day, cents(100)));
        lines += changeLine({ModelChange::Kind::Insert, {0, storedDate(day), 100, 0}}) + '\n';
    }
    (void)batch.settle();
    writing.commit();
    log.append(lines + "ready");
}

/// Every change of the movements is in the log; users and groups change beside them.
int typeForAWhile(const BookFiles& files, WorkerLog& log, int milliseconds)
{
    makeEngineLocksVain();
    Book book = openBook(files);
    CashBook cashBook(book, by());
    fillDays(book, log);
    RandomChanges changes(1);
    QElapsedTimer timer;
    timer.start();
    for (int round = 0; timer.elapsed() < milliseconds; ++round) {
        const ModelChange change = changes.next(storedMovements(book.main()));
        if (!std::holds_alternative<ChangedDay>(makeChange(cashBook, change)))
            return 2;
        log.append(changeLine(change));
        (void)renameGroup(book.main(), byAll(), 1, QString("Ομάδα %1").arg(round));
        addUser(book.auxiliary(), byAll(), QString::number(round), "x", {});
        const bool isBreak = round % 4 == 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(isBreak ? 60 : 1));
    }
    return 0;
}

/// One that only looks on, where locks do nothing. What it reads is counted, or what stood in its way; that the book
/// changes, or is in use, may do so.
class OnLooker {
public:
    explicit OnLooker(const BookFiles& files)
        : m_files(files)
        , m_book(files.dataFolder())
        , m_main(openBookFile(files.mainDatabase(), testKeys()))
    {
    }

    void look()
    {
        attempt([this] { requireSound(m_book.connection()); });
        attempt([this] { require(listCodes(m_main, CodeSelection::All).size() == 2, "codes"); });
        attempt([this] { require(listGroups(m_main).size() == 1, "groups"); });
        attempt([this] { require(signedIn(), "sign-in"); });
        attempt([this] { copy(); });
    }

    [[nodiscard]] std::string counts() const
    {
        return std::to_string(m_read) + " readings, " + std::to_string(m_refused) + " refused";
    }

private:
    static void require(bool isRight, const std::string& what)
    {
        if (!isRight)
            throw std::runtime_error(what);
    }
    static void requireSound(Connection& book)
    {
        const auto noProgress = [](std::int64_t, std::int64_t) {};
        for (const BookFindings& findings : {checkFiles(book, noProgress), checkContent(book, noProgress).findings}) {
            std::ostringstream text;
            printFindings(findings, text);
            require(findings.isInOrder(), text.str());
        }
    }

    void attempt(const std::function<void()>& read)
    {
        try {
            read();
            ++m_read;
        } catch (const SqlError& error) {
            if (error.kind() != SqlError::Kind::Busy && error.kind() != SqlError::Kind::JournalStands)
                throw;
            ++m_refused;
        }
    }

    [[nodiscard]] bool signedIn()
    {
        Connection users = openBookFile(m_files.auxiliaryDatabase(), testKeys());
        return signIn(users, "Μαρία", "1").has_value();
    }

    void copy()
    {
        const QTemporaryDir folder;
        const BookFiles copied(folder.path());
        (void)copyBook(m_files, copied, testKeys());
        Connection book = Connection::open(copied.mainDatabase(), testKeys().keyForCopy(copied.mainDatabase()));
        book.attach(copied.auxiliaryDatabase(), testKeys().keyForCopy(copied.auxiliaryDatabase()), "auxiliary");
        requireSound(book);
    }

    BookFiles m_files;
    OpenedBook m_book;
    Connection m_main;
    int m_read = 0;
    int m_refused = 0;
};

int lookForAWhile(const BookFiles& files, WorkerLog& log, int milliseconds)
{
    makeEngineLocksVain();
    const VainLocks locks;
    OnLooker looker(files);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        looker.look();
    log.append(looker.counts());
    return 0;
}

/// A name of its own for this computer, as the system gives it; else one that is only passed on.
MachineIdentity identityAt(const QString& host)
{
    const QByteArray name = host.toUtf8();
    if (::unshare(CLONE_NEWUTS) == 0 && ::sethostname(name.constData(), static_cast<std::size_t>(name.size())) == 0)
        return machineIdentity();
    std::puts("no UTS namespace");
    return {"user", host};
}

int claimAndRelease(const BookFiles& files, WorkerLog& log, const QString& host, int rounds)
{
    constexpr int roundsPerChange = 25;
    Book book = openBook(files);
    CashBook cashBook(book, by());
    UsageMarker marker(files.usageMarker(), identityAt(host));
    // Locked by the marker's holder alone, with a lock that knows nothing of the marker's.
    const int witness = ::open((files.dataFolder() + "/witness").toUtf8().constData(), O_RDWR | O_CREAT, 0666);
    int changes = 0;
    int refusals = 0;
    const int mostRounds = 10 * rounds; // a busy system may start the other late
    for (int round = 0; round < rounds || (refusals == 0 && round < mostRounds);) {
        const bool mayChange = round % 2 == 0 ? marker.claim() : !marker.guardChange();
        if (!mayChange) {
            ++refusals;
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            continue;
        }
        if (::flock(witness, LOCK_EX | LOCK_NB) != 0)
            return 2;
        if (++round % roundsPerChange == 0 && round <= rounds) {
            (void)cashBook.insert(incomeOf(QDate(2024, 3, 15), cents(1)));
            ++changes;
        }
        ::flock(witness, LOCK_UN);
        marker.release();
    }
    log.append("changes " + std::to_string(changes) + " refusals " + std::to_string(refusals));
    return 0;
}

int run(const QStringList& arguments)
{
    const QString task = arguments.value(1);
    const BookFiles files(arguments.value(2));
    WorkerLog log(arguments.value(3));
    if (task == "pairs")
        return changeBothFiles(files, log, arguments.value(4).toInt());
    if (task == "typing")
        return typeForAWhile(files, log, arguments.value(4).toInt());
    if (task == "looking")
        return lookForAWhile(files, log, arguments.value(4).toInt());
    if (task == "marker")
        return claimAndRelease(files, log, arguments.value(4), arguments.value(5).toInt());
    return 64;
}

} // namespace
} // namespace lorvan::test

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return lorvan::test::run(QCoreApplication::arguments());
    } catch (const std::exception& failure) {
        std::puts(failure.what());
        return 1;
    }
}
