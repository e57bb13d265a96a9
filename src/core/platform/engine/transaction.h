#pragma once

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"

namespace lorvan {

/// All or nothing: everything written since construction is rolled back unless commit() succeeded.
class Transaction {
public:
    enum class Mode {
        Read, ///< A stable view; takes the shared lock with the first read.
        Write, ///< Takes the write lock at once, so that nothing that is read can change before the commit.
        Exclusive ///< Keeps readers out as well, in all attached databases, so that the commit waits for nobody.
    };

    /// Throws SqlError: Busy if another connection goes on writing for more than five seconds, Replaced if the
    /// transaction is to write and the name of a database now belongs to another file.
    explicit Transaction(Connection& connection, Mode mode = Mode::Write);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws SqlError if the file cannot be written; everything is then rolled back. If the engine fails without
    /// knowing how the commit ended, the book is read again: if the change is there, it counts as committed, and
    /// noteUnconfirmed() records that the disk did not confirm it. Throws CommitUnknown if the book cannot be read
    /// either.
    void commit();

private:
    [[nodiscard]] bool isStored(qint32 stamp, const SqlError& failure) const;

    Connection& m_connection;
    int m_rowsBefore;
};

} // namespace lorvan
