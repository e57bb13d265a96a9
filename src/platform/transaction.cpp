#include "platform/transaction.h"

#include "platform/sql_error.h"

namespace lorvan {

Transaction::Transaction(Connection& connection, Mode mode)
    : m_connection(connection)
{
    connection.prepare(mode == Mode::Read ? "BEGIN" : "BEGIN IMMEDIATE").run();
}

Transaction::~Transaction()
{
    // After commit(), or once the engine has rolled back by itself (disk full), nothing is left to undo.
    if (!m_connection.inTransaction())
        return;
    try {
        m_connection.prepare("ROLLBACK").run();
    } catch (const SqlError&) {
        // Closing the connection rolls back what the engine could not undo now.
    }
}

void Transaction::commit()
{
    m_connection.prepare("COMMIT").run();
}

} // namespace lorvan
