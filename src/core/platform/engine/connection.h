#pragma once

#include "platform/engine/file_watch.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/statement.h"
#include "platform/files/file.h"
#include "platform/files/lock_reach.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace lorvan {

/// One open connection to an encrypted database file, for one thread.
///
/// The SQL functions cdate, csng and amount_add and the collation greek (see sql_functions.h) are registered on it, and
/// triggers, which no book has, do not run. A commit outlives a power cut: a rollback journal, and a disk that has
/// confirmed both the file and the journal's end. On a file system that cannot confirm names, the file alone. Another
/// connection's lock is waited for up to five seconds.
///
/// A connection that only reads, and whose locks do not keep everybody out, watches the files instead: every row that a
/// statement yields is of the state that its transaction, or without one the statement, began with. What another
/// program changes meanwhile is read again (readSteadily()) or ends in an SqlError of kind Busy.
class Connection {
public:
    /// ReadOnly takes nothing back: where a program that was killed has left a journal, it waits twice as long as for a
    /// lock and then fails with JournalStands. ReadWrite takes it back, and must therefore never meet another's live
    /// one. Asked to write a file that may only be read, it opens read-only.
    enum class Access { ReadOnly, ReadWrite };
    static constexpr std::chrono::milliseconds usualPatience{5000};

    /// Opens an existing plain file and proves key and header by reading the schema. Throws SqlError: CannotOpen for a
    /// missing file or a link, NotADatabase for a wrong key, a foreign or an empty file, Damaged for one that is cut
    /// short, InputOutput when the disk does not confirm the folder of a file that is to be written.
    /// `patience` is how long this connection waits for another one's lock, `locks` whom one on the file keeps out.
    static Connection open(const QString& path, const FileKey& key, Access access = Access::ReadOnly,
        std::chrono::milliseconds patience = usualPatience, LockReach locks = LockReach::Everybody);

    /// Makes a new file keyed with the password. Throws SqlError (CannotOpen) when the path exists already, FileError
    /// when it cannot be made.
    static Connection create(
        const QString& path, const QByteArray& password, FileAccess access = FileAccess::LikeFolder);

    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;
    ~Connection();

    /// Runs one or more statements without parameters.
    void execute(std::string_view sql);

    /// A prepared statement, from the connection's store of idle ones where the same text was used before.
    [[nodiscard]] Statement prepare(std::string_view sql);

    /// Makes the tables of a second database reachable as `schema`.name, with the access that the first one has. Not
    /// allowed inside a transaction. Throws SqlError like open().
    void attach(const QString& path, const FileKey& key, const QString& schema);

    /// Hands `sink` the bytes of a database's file from first to last, a megabyte at a time, until it returns false;
    /// `schema` is "main" or a name given to attach(). They are a whole database only inside a transaction that keeps
    /// other connections from writing and has not written itself. Opening the file a second time to read it, and
    /// closing it, would drop the locks that the process holds on it.
    void readFile(const QString& schema, const std::function<bool(const QByteArray&)>& sink);

    /// Throws SqlError when another file (Replaced) or none (CannotOpen) has the name of an open database by now: what
    /// is written here then would end in the file that was put aside.
    void refuseReplaced() const;

    /// True where a rollback journal stands beside a database: somebody writes, or was killed while writing.
    [[nodiscard]] static bool hasJournal(const QString& path);

    [[nodiscard]] std::int64_t lastInsertedKey() const;
    /// How many rows this connection has added, changed and removed.
    [[nodiscard]] int changedRows() const;
    [[nodiscard]] bool isReadOnly() const;

    /// True when the main database has a table of that name, in any letter case, as the statement before has found its
    /// schema. Reads nothing.
    [[nodiscard]] bool knowsTable(const char* name) const;
    [[nodiscard]] bool inTransaction() const;

    /// What stands in for locks; null where these are trusted.
    [[nodiscard]] FileWatch* watch() const { return m_watch.get(); }
    /// True inside a transaction and while a statement runs.
    [[nodiscard]] bool isReading() const;
    /// Has the watch note the files, waiting up to twice a lock's patience while a journal stands; then throws SqlError
    /// of kind JournalStands. Nothing happens where locks are trusted, or a reading has begun. Returns what is noted.
    FileWatch::State beginReading();
    /// Throws SqlError of kind Busy where somebody has changed the files since they were noted.
    void refuseDisturbed() const;

    void setBusyTimeout(std::chrono::milliseconds timeout);

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }

private:
    friend class Statement;

    /// How long somebody else is waited for. Stays where it is when the connection is moved.
    struct Waiting {
        std::chrono::milliseconds patience{usualPatience};
        std::chrono::steady_clock::time_point since{};
    };
    static int waitForLock(void* waiting, int attempts) noexcept;
    /// True for the refusal that a journal is in the way.
    [[nodiscard]] bool isJournalStanding(int code) const;
    /// False when it has stood for long enough.
    [[nodiscard]] bool waitForJournal(std::chrono::steady_clock::time_point since) const;
    /// Calls the engine again while a journal is in the way.
    template <typename Call> int patiently(const Call& call) const
    {
        int code = call();
        if (!isJournalStanding(code))
            return code;
        const auto since = std::chrono::steady_clock::now();
        while (isJournalStanding(code) && waitForJournal(since))
            code = call();
        return code;
    }

    struct Close {
        void operator()(sqlite3* handle) const noexcept;
    };
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const noexcept;
    };
    using IdleStatement = std::unique_ptr<sqlite3_stmt, Finalize>;

    explicit Connection(sqlite3* handle);
    static Connection openHandle(
        const QString& path, const QByteArray& engineKey, int flags, std::chrono::milliseconds patience);

    void takeBack(sqlite3_stmt* handle) noexcept;
    [[nodiscard]] IdleStatement prepared(std::string_view sql) const;
    void proveReadable(const QString& path);
    void outlivePowerCuts(const QString& schema, const QString& path);

    std::unique_ptr<Waiting> m_waiting = std::make_unique<Waiting>(); // outlives m_handle
    std::unique_ptr<sqlite3, Close> m_handle;
    std::unique_ptr<FileWatch> m_watch;
    std::vector<QByteArray> m_schemas{QByteArrayLiteral("main")};
    std::unordered_map<std::string, std::vector<IdleStatement>> m_idle; // destroyed before m_handle is closed
};

} // namespace lorvan
