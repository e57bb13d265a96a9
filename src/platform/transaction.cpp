#include "platform/transaction.h"

#include "platform/sql_error.h"

namespace lorvan {

namespace {

std::string_view beginning(Transaction::Mode mode)
{
    switch (mode) {
    case Transaction::Mode::Read:
        return "BEGIN";
    case Transaction::Mode::Write:
        break;
    case Transaction::Mode::Exclusive:
        return "BEGIN EXCLUSIVE";
    }
    return "BEGIN IMMEDIATE";
}

} // namespace

Transaction::Transaction(Connection& connection, Mode mode)
    : m_connection(connection)
{
    connection.prepare(beginning(mode)).run();
    if (mode == Mode::Read)
        return;
    try {
        connection.refuseReplaced(); // only now: whoever replaces a file shuts writers out until it is done
    } catch (const SqlError&) {
        connection.prepare("ROLLBACK").run();
        throw;
    }
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
