#pragma once

#include "platform/authority.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"

namespace lorvan {

/// All or nothing: everything written since construction is rolled back unless commit() succeeded. Only one that was
/// begun in somebody's name may write.
class Transaction {
public:
    enum class View {
        Steady, ///< Takes the shared lock with the first read.
        Alone ///< Keeps everybody else out, in all attached databases.
    };
    enum class Writing {
        AtOnce, ///< Takes the write lock at once, so that nothing that is read can change before the commit.
        Later, ///< Takes it with the first statement that writes.
        Alone ///< Keeps readers out as well, in all attached databases, so that the commit waits for nobody.
    };

    /// For reading. Throws SqlError: Busy if another connection goes on writing for more than five seconds; if nobody
    /// else is to be there, Replaced as well.
    Transaction(Connection& connection, View view);
    /// For writing in the name of `authority`. Throws the same, and Replaced if the name of a database now belongs to
    /// another file.
    Transaction(Connection& connection, const Authority& authority, Writing writing = Writing::AtOnce);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws std::logic_error if something was written in a transaction for reading, SqlError if the file cannot be
    /// written; everything is then rolled back. If the engine fails without knowing how the commit ended, the book is
    /// read again: if the change is there, it counts as committed, and noteUnconfirmed() records that the disk did not
    /// confirm it. Throws CommitUnknown if the book cannot be read either.
    void commit();

private:
    void begin(std::string_view statement);
    void refuseReplaced();
    [[nodiscard]] bool isStored(qint32 stamp, const SqlError& failure) const;

    Connection& m_connection;
    int m_rowsBefore;
    bool m_mayWrite;
};

} // namespace lorvan
