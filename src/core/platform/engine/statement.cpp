#include "platform/engine/statement.h"

#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/steady_reading.h"

#include <sqlite3.h>

#include <deque>
#include <new>
#include <utility>
#include <vector>

namespace lorvan {
namespace {

constexpr std::size_t rowsAhead = 256;

struct FreeValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using Row = std::vector<std::unique_ptr<sqlite3_value, FreeValue>>;

Row copiedRow(sqlite3_stmt* handle)
{
    Row row;
    for (int column = 0; column < sqlite3_column_count(handle); ++column) {
        row.emplace_back(sqlite3_value_dup(sqlite3_column_value(handle, column)));
        if (!row.back())
            throw std::bad_alloc();
    }
    return row;
}

} // namespace

struct Statement::Ahead {
    std::deque<Row> rows;
    bool isAll = false;

    static sqlite3_value* valueIn(const Statement& statement, int column)
    {
        return statement.m_ahead ? statement.m_ahead->rows.front().at(static_cast<std::size_t>(column)).get()
                                 : sqlite3_column_value(statement.m_handle, column);
    }
};

Statement::Statement(Connection& connection, sqlite3_stmt* handle)
    : m_connection(&connection)
    , m_handle(handle)
{
}

Statement::Statement(Statement&& other) noexcept
    : m_connection(other.m_connection)
    , m_handle(std::exchange(other.m_handle, nullptr))
    , m_ahead(std::move(other.m_ahead))
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

void Statement::bindAt(int parameter, std::optional<std::int64_t> value)
{
    if (value)
        bindInteger(parameter, *value);
    else
        bindAt(parameter, nullptr);
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
    const bool yieldsRows = m_ahead || (m_connection->watch() && sqlite3_column_count(m_handle) > 0);
    return yieldsRows ? stepAhead() : stepEngine();
}

bool Statement::stepAhead()
{
    if (!m_ahead)
        readSteadily(*m_connection, [this] { m_ahead = fetch(); });
    else if (m_ahead->rows.pop_front(); m_ahead->rows.empty() && !m_ahead->isAll)
        m_ahead = fetch();
    const bool hasRow = !m_ahead->rows.empty();
    if (!hasRow)
        m_ahead.reset();
    return hasRow;
}

/// The next rows, provided the files have not changed since the reading began.
std::unique_ptr<Statement::Ahead> Statement::fetch()
{
    try {
        auto ahead = std::make_unique<Ahead>();
        while (ahead->rows.size() < rowsAhead && !ahead->isAll) {
            ahead->isAll = !stepEngine();
            if (!ahead->isAll)
                ahead->rows.push_back(copiedRow(m_handle));
        }
        m_connection->refuseDisturbed();
        return ahead;
    } catch (const std::exception&) {
        reset();
        throw;
    }
}

bool Statement::stepEngine()
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
    reset();
    return changed;
}

void Statement::reset()
{
    sqlite3_reset(m_handle);
    m_ahead.reset();
}

Statement::StoredType Statement::storedType(int column) const
{
    switch (sqlite3_value_type(Ahead::valueIn(*this, column))) {
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
    return sqlite3_value_type(Ahead::valueIn(*this, column)) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_value_int64(Ahead::valueIn(*this, column));
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

std::string_view Statement::utf8(int column) const
{
    sqlite3_value* const stored = Ahead::valueIn(*this, column);
    const auto* const bytes = reinterpret_cast<const char*>(sqlite3_value_text(stored));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(stored))) : std::string_view();
}

QString Statement::text(int column) const
{
    const std::string_view bytes = utf8(column);
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace lorvan
