#include "platform/engine/sql_error.h"

#include <sqlite3.h>

namespace lorvan {
namespace {

std::string described(int code, const QString& engineMessage, const QString& statement)
{
    QString text = QStringLiteral("%1 (%2)").arg(engineMessage).arg(code);
    if (!statement.isEmpty())
        text += QStringLiteral(": ") + statement;
    return text.toStdString();
}

} // namespace

SqlError::SqlError(int code, const QString& engineMessage, const QString& statement, const QString& file)
    : std::runtime_error(described(code, engineMessage, statement))
    , m_code(code)
    , m_engineMessage(engineMessage)
    , m_statement(statement)
    , m_file(file)
{
}

SqlError SqlError::fromConnection(sqlite3* connection, int code, const QString& statement)
{
    if (!connection)
        return {code, QString::fromUtf8(sqlite3_errstr(code)), statement};
    const int extended = sqlite3_extended_errcode(connection);
    const bool matches = (extended & 0xFF) == (code & 0xFF);
    return {matches ? extended : code, QString::fromUtf8(matches ? sqlite3_errmsg(connection) : sqlite3_errstr(code)),
        statement, QString::fromUtf8(sqlite3_db_filename(connection, "main"))};
}

SqlError::Kind SqlError::kind() const
{
    if (m_code == SQLITE_READONLY_DBMOVED)
        return Kind::Replaced;
    if (m_code == SQLITE_READONLY_ROLLBACK)
        return Kind::JournalStands;
    switch (m_code & 0xFF) {
    case SQLITE_NOTADB:
        return Kind::NotADatabase;
    case SQLITE_CORRUPT:
        return Kind::Damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Kind::Busy;
    case SQLITE_FULL:
        return Kind::DiskFull;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return Kind::ReadOnly;
    case SQLITE_CANTOPEN:
        return Kind::CannotOpen;
    case SQLITE_IOERR:
        return Kind::InputOutput;
    case SQLITE_INTERRUPT:
        return Kind::Interrupted;
    default:
        return Kind::Other;
    }
}

} // namespace lorvan
