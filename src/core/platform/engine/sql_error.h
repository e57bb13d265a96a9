#pragma once

#include <QString>

#include <stdexcept>

struct sqlite3;

namespace lorvan {

/// An error of the database engine, with its message, its result code and the statement concerned. what() contains all
/// of them.
class SqlError : public std::runtime_error {
public:
    /// The kind of error, as far as the user can do something about it.
    enum class Kind {
        NotADatabase,
        Damaged,
        Busy,
        DiskFull,
        ReadOnly,
        Replaced,
        JournalStands, ///< A change was interrupted, and this connection may not roll it back.
        CannotOpen,
        InputOutput,
        Interrupted, ///< A StopCheck said no.
        Other
    };

    SqlError(int code, const QString& engineMessage, const QString& statement, const QString& file = {});
    /// Takes code and message from the connection at the moment of failure; with a null connection, the message is the
    /// general text for the code.
    static SqlError fromConnection(sqlite3* connection, int code, const QString& statement);

    [[nodiscard]] int code() const { return m_code; } ///< The engine's extended result code.
    [[nodiscard]] Kind kind() const;
    [[nodiscard]] const QString& engineMessage() const { return m_engineMessage; }
    [[nodiscard]] const QString& statement() const { return m_statement; }
    [[nodiscard]] const QString& file() const { return m_file; } ///< The main database file; empty if unknown.

private:
    int m_code;
    QString m_engineMessage;
    QString m_statement;
    QString m_file;
};

/// The engine cannot say how a commit ended, and the book could not be read afterwards.
class CommitUnknown : public SqlError {
    using SqlError::SqlError;
};

} // namespace lorvan
