#include "bare_sql.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace lorvan::bench {
namespace {

void check(bool fine, sqlite3* connection)
{
    if (fine)
        return;
    std::fprintf(stderr, "bare SQL: %s\n", sqlite3_errmsg(connection));
    std::exit(1);
}

sqlite3* opened(const QString& path)
{
    sqlite3* handle = nullptr;
    check(sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK, handle);
    return handle;
}

std::int64_t readRow(sqlite3_stmt* statement)
{
    std::int64_t sum = 0;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        if (sqlite3_column_type(statement, column) == SQLITE_TEXT)
            sum += sqlite3_column_text(statement, column)[0];
        else
            sum += sqlite3_column_int64(statement, column);
    }
    return sum;
}

} // namespace

void BareConnection::Close::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

BareConnection::BareConnection(const QString& path, const QByteArray& key)
    : m_handle(opened(path))
{
    check(sqlite3_key(handle(), key.constData(), static_cast<int>(key.size())) == SQLITE_OK, handle());
    execute("SELECT count(*) FROM sqlite_master");
    execute("PRAGMA synchronous = EXTRA; PRAGMA cache_size = -65536");
}

void BareConnection::execute(const char* sql) const
{
    check(sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) == SQLITE_OK, handle());
}

void BareStatement::Finalize::operator()(sqlite3_stmt* handle) const noexcept
{
    sqlite3_finalize(handle);
}

BareStatement::BareStatement(const BareConnection& connection, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(connection.handle(), sql, -1, &statement, nullptr) == SQLITE_OK, connection.handle());
    m_handle.reset(statement);
}

std::int64_t BareStatement::run(std::initializer_list<BareValue> values) const
{
    int parameter = 0;
    for (const BareValue& value : values) {
        ++parameter;
        if (const auto* const number = std::get_if<std::int64_t>(&value))
            sqlite3_bind_int64(m_handle.get(), parameter, *number);
        else
            sqlite3_bind_text(m_handle.get(), parameter, std::get<const char*>(value), -1, SQLITE_STATIC);
    }
    std::int64_t sum = 0;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(m_handle.get())) == SQLITE_ROW)
        sum += readRow(m_handle.get());
    check(code == SQLITE_DONE, sqlite3_db_handle(m_handle.get()));
    sqlite3_reset(m_handle.get());
    return sum;
}

} // namespace lorvan::bench
