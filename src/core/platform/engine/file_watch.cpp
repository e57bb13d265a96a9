#include "platform/engine/file_watch.h"

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"

#include <sqlite3.h>

#include <algorithm>
#include <sys/stat.h>

namespace lorvan {
namespace {

constexpr int comparedBytes = 1024; // the smallest page there is in an encrypted file

void check(int code, const QString& path)
{
    if (code != SQLITE_OK)
        throw SqlError(code, QString::fromUtf8(sqlite3_errstr(code)), path, path);
}

QByteArray beginningOf(sqlite3* handle, const QByteArray& schema, const QString& path)
{
    sqlite3_file* file = nullptr;
    check(sqlite3_file_control(handle, schema.constData(), SQLITE_FCNTL_FILE_POINTER, &file), path);
    sqlite3_int64 size = 0;
    check(file->pMethods->xFileSize(file, &size), path);
    QByteArray bytes(static_cast<int>(std::min<sqlite3_int64>(size, comparedBytes)), Qt::Uninitialized);
    check(file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0), path);
    return bytes;
}

} // namespace

bool FileWatch::FileState::operator==(const FileState& other) const
{
    return firstPage == other.firstPage && written.tv_sec == other.written.tv_sec
        && written.tv_nsec == other.written.tv_nsec && hasJournal == other.hasJournal;
}

FileWatch::FileWatch(sqlite3* handle)
    : m_handle(handle)
{
}

void FileWatch::add(const QByteArray& schema)
{
    m_schemas.push_back(schema);
}

FileWatch::FileState FileWatch::stateOf(const QByteArray& schema) const
{
    const char* const name = sqlite3_db_filename(m_handle, schema.constData());
    const QString path = QString::fromUtf8(name);
    FileState state;
    state.firstPage = beginningOf(m_handle, schema, path);
    struct stat found { };
    if (::lstat(name, &found) != 0)
        throw SqlError(SQLITE_CANTOPEN, QStringLiteral("database file is gone"), path, path);
    state.written = found.st_mtim;
    state.hasJournal = Connection::hasJournal(path);
    return state;
}

FileWatch::State FileWatch::state() const
{
    State states;
    for (const QByteArray& schema : m_schemas)
        states.push_back(stateOf(schema));
    return states;
}

bool FileWatch::note()
{
    // The engine keeps its pages as long as the first one is unchanged. After a disturbed reading they may not match
    // it.
    sqlite3_db_release_memory(m_handle);
    State now = state();
    if (std::any_of(now.begin(), now.end(), [](const FileState& each) { return each.hasJournal; }))
        return false;
    m_noted = std::move(now);
    return true;
}

bool FileWatch::isAs(const State& noted) const
{
    try {
        return state() == noted;
    } catch (const SqlError&) {
        return false;
    }
}

} // namespace lorvan
