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
/// The SQL functions cdate, csng and amount_add and the collation greek (see sql_functions.h) are registered on it.
/// Triggers, which no book has, are disabled. A commit survives a power cut: there is a rollback journal, and the disk
/// has confirmed both the file and the removal of the journal (the file alone where the file system cannot confirm
/// names). The connection waits up to five seconds for another connection's lock.
///
/// A read-only connection whose locks do not keep everybody out watches the files instead: all rows that a statement
/// returns belong to the state at the beginning of its transaction or, without one, of the statement. If another
/// program changes the files in the meantime, they are read again (readSteadily()) or the reading fails with SqlError
/// of kind Busy.
class Connection {
public:
    /// ReadOnly never rolls back: if a killed program has left a journal, it waits twice as long as for a lock and then
    /// fails with JournalStands. ReadWrite rolls it back, and must therefore never be used while another program's
    /// journal is in use. If ReadWrite is asked for and the file may only be read, it is opened read-only.
    enum class Access { ReadOnly, ReadWrite };
    static constexpr std::chrono::milliseconds usualPatience{5000};

    /// Opens an existing plain file and proves key and header by reading the schema. Throws SqlError: CannotOpen for
    /// a missing file or a link, NotADatabase for a wrong key, a foreign or an empty file, Damaged for a truncated
    /// file, InputOutput when a file is opened for writing and the disk does not confirm its folder. `patience` is how
    /// long this connection waits for another one's lock, `locks` says whom a lock on the file keeps out.
    static Connection open(const QString& path, const FileKey& key, Access access = Access::ReadOnly,
        std::chrono::milliseconds patience = usualPatience, LockReach locks = LockReach::Everybody);

    /// Makes a new file encrypted with the password. Throws SqlError (CannotOpen) if the path exists already, FileError
    /// if the file cannot be made.
    static Connection create(
        const QString& path, const QByteArray& password, FileAccess access = FileAccess::LikeFolder);

    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;
    ~Connection();

    /// Runs one or more statements without parameters.
    void execute(std::string_view sql);

    /// A prepared statement; an idle one with the same text is used again if the connection has one.
    [[nodiscard]] Statement prepare(std::string_view sql);

    /// Makes the tables of a second database available as `schema`.name, with the same access as the first one. Not
    /// allowed inside a transaction. Throws SqlError like open().
    void attach(const QString& path, const FileKey& key, const QString& schema);

    /// Passes the bytes of a database file to `sink`, from first to last, a megabyte at a time, until it returns false.
    /// `schema` is "main" or a name given to attach(). The bytes are a consistent database only inside a transaction
    /// that keeps other connections from writing and that has not written anything itself. The file must not be opened
    /// a second time to read it: closing it would drop the locks that the process holds on it.
    void readFile(const QString& schema, const std::function<bool(const QByteArray&)>& sink);

    /// Throws SqlError if the name of an open database now belongs to another file (Replaced) or to none (CannotOpen):
    /// anything written here would go to the file that was moved away.
    void refuseReplaced() const;

    /// True if there is a rollback journal beside a database: somebody is writing, or was killed while writing.
    [[nodiscard]] static bool hasJournal(const QString& path);

    [[nodiscard]] std::int64_t lastInsertedKey() const;
    /// The number of rows that this connection has inserted, changed and deleted.
    [[nodiscard]] int changedRows() const;
    [[nodiscard]] bool isReadOnly() const;

    /// True if one of the open databases has a table of that name, in any letter case, according to the schema that the
    /// last statement found. Reads nothing.
    [[nodiscard]] bool knowsTable(const char* name) const;
    [[nodiscard]] bool inTransaction() const;

    /// Used in place of locks; null if locks are trusted.
    [[nodiscard]] FileWatch* watch() const { return m_watch.get(); }
    /// True inside a transaction and while a statement is running.
    [[nodiscard]] bool isReading() const;
    /// Makes the watch note the state of the files, waiting up to twice the lock timeout while there is a journal, and
    /// then throws SqlError of kind JournalStands. Does nothing if locks are trusted or a reading has already begun.
    /// Returns the noted state.
    FileWatch::State beginReading();
    /// Throws SqlError of kind Busy if somebody has changed the files since they were noted.
    void refuseDisturbed() const;

    void setBusyTimeout(std::chrono::milliseconds timeout);

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }

private:
    friend class Statement;

    /// How long to wait for somebody else. Keeps its address when the connection is moved.
    struct Waiting {
        std::chrono::milliseconds patience{usualPatience};
        std::chrono::steady_clock::time_point since{};
    };
    static int waitForLock(void* waiting, int attempts) noexcept;
    /// True if the engine refused because of a journal.
    [[nodiscard]] bool isJournalStanding(int code) const;
    /// False once the wait has been long enough.
    [[nodiscard]] bool waitForJournal(std::chrono::steady_clock::time_point since) const;
    /// Repeats a call to the engine while there is a journal.
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
