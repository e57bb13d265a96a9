#include "platform/engine/transaction.h"

#include "platform/confirmation.h"
#include "platform/engine/sql_error.h"
#include "platform/stop_check.h"

#include <QRandomGenerator>

#include <limits>
#include <stdexcept>
#include <string>

namespace lorvan {

namespace {

constexpr std::string_view exclusive = "BEGIN EXCLUSIVE";

std::string_view beginning(Transaction::Writing writing)
{
    switch (writing) {
    case Transaction::Writing::Later:
        return "BEGIN";
    case Transaction::Writing::AtOnce:
        break;
    case Transaction::Writing::Alone:
        return exclusive;
    }
    return "BEGIN IMMEDIATE";
}

} // namespace

Transaction::Transaction(Connection& connection, View view)
    : m_connection(connection)
    , m_rowsBefore(connection.changedRows())
    , m_mayWrite(false)
{
    begin(view == View::Alone ? exclusive : "BEGIN");
    if (view == View::Alone)
        refuseReplaced();
}

Transaction::Transaction(Connection& connection, const Authority&, Writing writing)
    : m_connection(connection)
    , m_rowsBefore(connection.changedRows())
    , m_mayWrite(true)
{
    begin(beginning(writing));
    refuseReplaced();
}

void Transaction::begin(std::string_view statement)
{
    (void)m_connection.beginReading();
    m_connection.prepare(statement).run();
}

/// Not earlier: while a file is being replaced, writers are locked out.
void Transaction::refuseReplaced()
{
    try {
        m_connection.refuseReplaced();
    } catch (const SqlError&) {
        m_connection.prepare("ROLLBACK").run();
        throw;
    }
}

Transaction::~Transaction()
{
    // After commit(), or if the engine has rolled back by itself (disk full), there is nothing left to undo.
    if (!m_connection.inTransaction())
        return;
    try {
        m_connection.prepare("ROLLBACK").run();
    } catch (const SqlError&) {
        // Closing the connection rolls back what the engine could not undo now.
    }
}

/// Each change stores a random number in the book, so that one can see afterwards whether it was committed. It lies in
/// the page that every commit writes anyway.
void Transaction::commit()
{
    if (m_connection.changedRows() == m_rowsBefore) {
        m_connection.prepare("COMMIT").run();
        return;
    }
    if (!m_mayWrite)
        throw std::logic_error("a transaction for reading has written");
    const qint32 stamp = QRandomGenerator::global()->bounded(1, std::numeric_limits<qint32>::max());
    m_connection.execute("PRAGMA main.user_version = " + std::to_string(stamp));
    try {
        m_connection.prepare("COMMIT").run();
    } catch (const SqlError& failure) {
        if (m_connection.inTransaction() || !isStored(stamp, failure))
            throw;
        noteUnconfirmed();
    }
}

bool Transaction::isStored(qint32 stamp, const SqlError& failure) const
{
    const Undisturbed undisturbed;
    try {
        auto row = m_connection.prepare("PRAGMA main.user_version");
        return row.step() && row.number(0) == stamp;
    } catch (const SqlError&) {
        throw CommitUnknown(failure.code(), failure.engineMessage(), failure.statement());
    }
}

} // namespace lorvan
