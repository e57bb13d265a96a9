#include "platform/statement.h"

#include "platform/connection.h"
#include "platform/date_text.h"
#include "platform/sql_error.h"

#include <sqlite3.h>

#include <utility>

namespace lorvan {

Statement::Statement(Connection& connection, sqlite3_stmt* handle)
    : m_connection(&connection)
    , m_handle(handle)
{
}

Statement::Statement(Statement&& other) noexcept
    : m_connection(other.m_connection)
    , m_handle(std::exchange(other.m_handle, nullptr))
{
}

Statement::~Statement()
{
    if (m_handle)
        m_connection->takeBack(m_handle);
}

void Statement::check(int code) const
{
    if (code != SQLITE_OK)
        throw SqlError::fromConnection(m_connection->handle(), code, QString::fromUtf8(sqlite3_sql(m_handle)));
}

void Statement::bindAt(int parameter, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    check(sqlite3_bind_text64(m_handle, parameter, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
        SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::bindAt(int parameter, std::nullptr_t)
{
    check(sqlite3_bind_null(m_handle, parameter));
}

void Statement::bindAt(int parameter, const std::optional<QString>& text)
{
    if (text)
        bindAt(parameter, *text);
    else
        check(sqlite3_bind_null(m_handle, parameter));
}

void Statement::bindAt(int parameter, QDate date)
{
    bindInteger(parameter, storedDate(date));
}

void Statement::bindAt(int parameter, Currency amount)
{
    bindInteger(parameter, amount.tenThousandths());
}

void Statement::bindInteger(int parameter, std::int64_t value)
{
    check(sqlite3_bind_int64(m_handle, parameter, value));
}

bool Statement::step()
{
    const int code = m_connection->patiently([this] { return sqlite3_step(m_handle); });
    if (code == SQLITE_ROW || code == SQLITE_DONE)
        return code == SQLITE_ROW;
    throw SqlError::fromConnection(m_connection->handle(), code, QString::fromUtf8(sqlite3_sql(m_handle)));
}

int Statement::run()
{
    while (step()) { }
    const int changed = sqlite3_changes(m_connection->handle());
    sqlite3_reset(m_handle);
    return changed;
}

void Statement::reset()
{
    sqlite3_reset(m_handle);
}

Statement::StoredType Statement::storedType(int column) const
{
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_INTEGER:
        return StoredType::Integer;
    case SQLITE_FLOAT:
        return StoredType::Fraction;
    case SQLITE_TEXT:
        return StoredType::Text;
    case SQLITE_BLOB:
        return StoredType::Bytes;
    default:
        return StoredType::Null;
    }
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_handle, column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_handle, column);
}

qint32 Statement::number(int column) const
{
    return static_cast<qint32>(integer(column));
}

Currency Statement::currency(int column) const
{
    return Currency::fromTenThousandths(integer(column));
}

QDate Statement::date(int column) const
{
    return dateFromStored(integer(column));
}

bool Statement::boolean(int column) const
{
    return integer(column) != 0;
}

QString Statement::text(int column) const
{
    const unsigned char* utf8 = sqlite3_column_text(m_handle, column);
    return QString::fromUtf8(reinterpret_cast<const char*>(utf8), sqlite3_column_bytes(m_handle, column));
}

} // namespace lorvan
