#pragma once

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"

namespace lorvan {

/// All or nothing: what was written since its construction is undone unless commit() was reached.
class Transaction {
public:
    enum class Mode {
        Read, ///< A stable view; takes the shared lock with the first reading.
        Write, ///< Takes the right to write at once, so nothing that is read can change before the commit.
        Exclusive ///< Shuts readers out as well, on all attached databases, so that the commit waits for nobody.
    };

    /// Throws SqlError, of kind Busy when another connection writes for more than five seconds, of kind Replaced when
    /// it would write and another file has a database's name by now.
    explicit Transaction(Connection& connection, Mode mode = Mode::Write);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws SqlError when the file cannot be written; everything is then undone. Where the engine fails without
    /// knowing how the commit ended, the book is read again: what is stored counts as committed, and noteUnconfirmed()
    /// says that the disk did not confirm it. Throws CommitUnknown where that cannot be read either.
    void commit();

private:
    [[nodiscard]] bool isStored(qint32 stamp, const SqlError& failure) const;

    Connection& m_connection;
    int m_rowsBefore;
};

} // namespace lorvan
