#include "platform/engine/connection.h"

#include "platform/engine/engine_calls.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/sql_functions.h"
#include "platform/engine/steady_reading.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"
#include "platform/stop_check.h"

#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <thread>

namespace lorvan {
namespace {

constexpr sqlite3_int64 oneMegabyte = 1 << 20;
constexpr int stepsBetweenQuestions = 20'000; // of the engine's own; some ten milliseconds
constexpr auto cacheOfSixtyFourMegabytes = "PRAGMA cache_size = -65536";

int isToStop(void*)
{
    return StopCheck::goesOn() ? 0 : 1;
}

QString quoted(std::string_view sql)
{
    return QString::fromUtf8(sql.data(), static_cast<qsizetype>(sql.size()));
}

/// Files are kept in the format of release 3 of the encryption library; a later release must be told so after the key.
void keepFileForm(Connection& connection)
{
    auto version = connection.prepare("PRAGMA cipher_version");
    if (version.step() && version.text(0).section(u'.', 0, 0).toInt() >= 4)
        connection.execute("PRAGMA cipher_compatibility = 3");
}

SqlError replacedOrGone(const QString& path)
{
    if (QFileInfo::exists(path))
        return {SQLITE_READONLY_DBMOVED, QStringLiteral("database file was replaced"), path};
    return {SQLITE_CANTOPEN, QStringLiteral("database file is gone"), path};
}

} // namespace

void Connection::Close::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

void Connection::Finalize::operator()(sqlite3_stmt* handle) const noexcept
{
    sqlite3_finalize(handle);
}

Connection::Connection(sqlite3* handle)
    : m_handle(handle)
{
}

Connection::Connection(Connection&&) noexcept = default;

Connection& Connection::operator=(Connection&& other) noexcept
{
    m_idle.clear();
    m_handle = std::move(other.m_handle);
    m_waiting = std::move(other.m_waiting);
    m_watch = std::move(other.m_watch);
    m_schemas = std::move(other.m_schemas);
    m_idle = std::move(other.m_idle);
    return *this;
}

Connection::~Connection() = default;

Connection Connection::openHandle(
    const QString& path, const QByteArray& engineKey, int flags, std::chrono::milliseconds patience)
{
    installEngineCalls();
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &raw, flags, nullptr);
    Connection connection(raw);
    // The key must not be given to a handle that failed to open.
    if (opened != SQLITE_OK)
        throw SqlError::fromConnection(raw, opened, path);
    sqlite3_extended_result_codes(raw, 1);
    const int keyed = sqlite3_key(raw, engineKey.constData(), static_cast<int>(engineKey.size()));
    if (keyed != SQLITE_OK)
        throw SqlError::fromConnection(raw, keyed, path);
    keepFileForm(connection);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_busy_handler(raw, waitForLock, connection.m_waiting.get());
    connection.setBusyTimeout(patience);
    sqlite3_progress_handler(raw, stepsBetweenQuestions, isToStop, nullptr);
    registerSqlFunctions(raw);
    return connection;
}

Connection Connection::open(
    const QString& path, const FileKey& key, Access access, std::chrono::milliseconds patience, LockReach locks)
{
    if (QFileInfo(path).size() == 0 && QFileInfo::exists(path))
        throw SqlError(SQLITE_NOTADB, QStringLiteral("file is empty"), path);
    const int flags = access == Access::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    Connection connection = openHandle(path, key.engineText(), flags, patience);
    if (locks != LockReach::Everybody && connection.isReadOnly())
        connection.m_watch = std::make_unique<FileWatch>(connection.handle());
    connection.proveReadable(path);
    connection.outlivePowerCuts(QStringLiteral("main"), path);
    connection.execute(cacheOfSixtyFourMegabytes);
    return connection;
}

Connection Connection::create(const QString& path, const QByteArray& password, FileAccess access)
{
    const QFileInfo info(path);
    if (info.exists())
        throw SqlError(SQLITE_CANTOPEN, QStringLiteral("file exists"), path);
    (void)Folder(info.path()).open(info.fileName(), Folder::Opening::MakeNew, access);
    Connection connection = openHandle(path, password, SQLITE_OPEN_READWRITE, usualPatience);
    connection.outlivePowerCuts(QStringLiteral("main"), path);
    connection.execute(cacheOfSixtyFourMegabytes);
    return connection;
}

/// Where the file system knows no sync of a folder, the engine must not ask for one.
void Connection::outlivePowerCuts(const QString& schema, const QString& path)
{
    if (isReadOnly())
        return;
    bool canConfirmNames = false;
    try {
        canConfirmNames = Folder(QFileInfo(path).path()).knowsSync();
    } catch (const FileError& error) {
        throw SqlError(SQLITE_IOERR_DIR_FSYNC, error.reason(), error.path());
    }
    execute(QStringLiteral("PRAGMA %1.synchronous = %2")
                .arg(schema, canConfirmNames ? QStringLiteral("EXTRA") : QStringLiteral("FULL"))
                .toStdString());
}

bool Connection::hasJournal(const QString& path)
{
    const QFileInfo journal(path + QStringLiteral("-journal"));
    return journal.isSymLink() || journal.exists();
}

int Connection::waitForLock(void* waiting, int attempts) noexcept
{
    constexpr std::array<int, 7> pauses{1, 2, 5, 10, 15, 20, 25};
    auto& wait = *static_cast<Waiting*>(waiting);
    const auto now = std::chrono::steady_clock::now();
    if (attempts == 0)
        wait.since = now;
    if (now - wait.since >= wait.patience || !StopCheck::goesOn())
        return 0;
    const auto pause = std::chrono::milliseconds(pauses[std::min<std::size_t>(static_cast<std::size_t>(attempts), 6)]);
    std::this_thread::sleep_for(std::min(pause, wait.patience));
    return 1;
}

bool Connection::isJournalStanding(int code) const
{
    return (code & 0xFF) == SQLITE_READONLY && sqlite3_extended_errcode(handle()) == SQLITE_READONLY_ROLLBACK;
}

bool Connection::waitForJournal(std::chrono::steady_clock::time_point since) const
{
    constexpr std::chrono::milliseconds pause{10};
    if (std::chrono::steady_clock::now() - since >= 2 * m_waiting->patience || !StopCheck::goesOn())
        return false;
    std::this_thread::sleep_for(pause);
    return true;
}

void Connection::proveReadable(const QString& path)
{
    try {
        (void)prepare("SELECT count(*) FROM sqlite_master").step();
    } catch (const SqlError& error) {
        throw SqlError(error.code(), error.engineMessage(), path + QStringLiteral(": ") + error.statement(), path);
    }
}

void Connection::execute(std::string_view sql)
{
    const std::string text(sql);
    const int code = patiently([&] { return sqlite3_exec(handle(), text.c_str(), nullptr, nullptr, nullptr); });
    if (code != SQLITE_OK)
        throw SqlError::fromConnection(handle(), code, quoted(sql));
}

Statement Connection::prepare(std::string_view sql)
{
    const auto idle = m_idle.find(std::string(sql));
    if (idle != m_idle.end() && !idle->second.empty()) {
        sqlite3_stmt* const reused = idle->second.back().release();
        idle->second.pop_back();
        return {*this, reused};
    }
    if (!m_watch || isReading()) // the statements that roll back a disturbed reading are prepared here too
        return {*this, prepared(sql).release()};
    IdleStatement steady;
    readSteadily(*this, [&] {
        steady = prepared(sql); // the engine may have to read the schema
        refuseDisturbed();
    });
    return {*this, steady.release()};
}

Connection::IdleStatement Connection::prepared(std::string_view sql) const
{
    sqlite3_stmt* made = nullptr;
    const int code = patiently(
        [&] { return sqlite3_prepare_v2(handle(), sql.data(), static_cast<int>(sql.size()), &made, nullptr); });
    if (code != SQLITE_OK)
        throw SqlError::fromConnection(handle(), code, quoted(sql));
    return IdleStatement(made);
}

void Connection::takeBack(sqlite3_stmt* handle) noexcept
{
    IdleStatement statement(handle);
    sqlite3_reset(handle);
    sqlite3_clear_bindings(handle);
    try {
        m_idle[sqlite3_sql(handle)].push_back(std::move(statement));
    } catch (const std::bad_alloc&) {
        // Not kept for later: `statement` finalizes it.
    }
}

void Connection::attach(const QString& path, const FileKey& key, const QString& schema)
{
    // ATTACH would silently create a missing file.
    if (QFileInfo(path).size() == 0)
        throw SqlError(SQLITE_CANTOPEN, QStringLiteral("unable to open database file"), path);
    const auto run = [&] {
        prepare("ATTACH ? AS ? KEY ?").bind(path, schema, QString::fromLatin1(key.engineText())).run();
    };
    try {
        run();
    } catch (const SqlError& error) {
        if (!m_watch)
            throw SqlError(error.code(), error.engineMessage(), path + QStringLiteral(": ") + error.statement(), path);
        run();
    }
    m_schemas.push_back(schema.toUtf8());
    if (m_watch)
        m_watch->add(schema.toUtf8());
    outlivePowerCuts(schema, path);
}

void Connection::readFile(const QString& schema, const std::function<bool(const QByteArray&)>& sink)
{
    const auto check = [&](int code) {
        if (code != SQLITE_OK)
            throw SqlError(code, QString::fromUtf8(sqlite3_errstr(code)), schema);
    };
    sqlite3_file* file = nullptr;
    check(sqlite3_file_control(handle(), schema.toUtf8().constData(), SQLITE_FCNTL_FILE_POINTER, &file));
    sqlite3_int64 size = 0;
    check(file->pMethods->xFileSize(file, &size));
    for (sqlite3_int64 offset = 0; offset < size; offset += oneMegabyte) {
        QByteArray block(static_cast<int>(std::min<sqlite3_int64>(oneMegabyte, size - offset)), Qt::Uninitialized);
        check(file->pMethods->xRead(file, block.data(), static_cast<int>(block.size()), offset));
        if (!sink(block))
            return;
    }
}

void Connection::refuseReplaced() const
{
    for (const QByteArray& schema : m_schemas) {
        int hasMoved = 0;
        if (sqlite3_file_control(handle(), schema.constData(), SQLITE_FCNTL_HAS_MOVED, &hasMoved) == SQLITE_OK
            && hasMoved != 0)
            throw replacedOrGone(QString::fromUtf8(sqlite3_db_filename(handle(), schema.constData())));
    }
}

std::int64_t Connection::lastInsertedKey() const
{
    return sqlite3_last_insert_rowid(handle());
}

int Connection::changedRows() const
{
    return sqlite3_total_changes(handle());
}

bool Connection::isReadOnly() const
{
    return sqlite3_db_readonly(handle(), "main") == 1;
}

bool Connection::knowsTable(const char* name) const
{
    return sqlite3_table_column_metadata(handle(), nullptr, name, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr)
        == SQLITE_OK;
}

bool Connection::inTransaction() const
{
    return sqlite3_get_autocommit(handle()) == 0;
}

bool Connection::isReading() const
{
    if (inTransaction())
        return true;
    for (sqlite3_stmt* each = sqlite3_next_stmt(handle(), nullptr); each; each = sqlite3_next_stmt(handle(), each)) {
        if (sqlite3_stmt_busy(each) != 0)
            return true;
    }
    return false;
}

FileWatch::State Connection::beginReading()
{
    if (!m_watch)
        return {};
    const auto since = std::chrono::steady_clock::now();
    while (!isReading() && !m_watch->note()) {
        const QString path = QString::fromUtf8(sqlite3_db_filename(handle(), "main"));
        if (!waitForJournal(since))
            throw SqlError(SQLITE_READONLY_ROLLBACK, QStringLiteral("a rollback journal stands"), path, path);
    }
    return m_watch->noted();
}

void Connection::refuseDisturbed() const
{
    if (!m_watch || m_watch->isAsNoted())
        return;
    const QString path = QString::fromUtf8(sqlite3_db_filename(handle(), "main"));
    throw SqlError(SQLITE_BUSY, QStringLiteral("the file changes while it is read"), path, path);
}

void Connection::setBusyTimeout(std::chrono::milliseconds timeout)
{
    m_waiting->patience = timeout;
}

} // namespace lorvan
