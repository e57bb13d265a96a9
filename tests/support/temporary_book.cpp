#include "support/temporary_book.h"

#include "cashbook/cash_closing.h"
#include "codes/code_catalogue.h"
#include "support/files.h"
#include "users/user_accounts.h"

#include <QTime>

#include <sqlite3.h>

#include <map>

namespace lorvan::test {

void letTriggersRun(Connection& connection)
{
    sqlite3_db_config(connection.handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 1, nullptr);
}

KeyRing& testKeys()
{
    static KeyRing keys(bookPassword());
    return keys;
}

Connection openAt(const QString& path)
{
    return Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
}

Connection openCopy(const QString& path)
{
    return Connection::open(path, testKeys().keyForCopy(path), Connection::Access::ReadWrite);
}

Connection openBoth(const QString& folder)
{
    const QString main = BookFiles(folder).mainDatabase();
    const QString other = BookFiles(folder).auxiliaryDatabase();
    Connection both = Connection::open(main, testKeys().keyForCopy(main), Connection::Access::ReadWrite);
    both.attach(other, testKeys().keyForCopy(other), "other");
    return both;
}

TemporaryBook::TemporaryBook()
{
    createBook(files());
    addGroup(1, "Πωλήσεις");
    addCode(incomeCode, "Λιανική", true, 1);
    addCode(expenseCode, "Προμήθειες", false);
}

void TemporaryBook::addGroup(qint32 number, const QString& name) const
{
    openMain().prepare("INSERT INTO omades (aa, perigrafh) VALUES (?,?)").bind(number, name).run();
}

void TemporaryBook::addCode(qint32 code, const QString& description, bool income, qint32 group, bool active) const
{
    openMain()
        .prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas, lista, esodo, energos)"
                 " VALUES (?,?,(SELECT perigrafh FROM omades WHERE aa=?),?,?,?,?)")
        .bind(code, description, group, group, codeListLine(QString::number(code), description), income, active)
        .run();
}

void TemporaryBook::addMovementRow(const MovementDraft& movement) const
{
    openMain()
        .prepare("INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, epitagh, L_tajeos)"
                 " VALUES (?,?,?,?,?,0,?,?)")
        .bind(movement.code, movement.day, movement.description, movement.income, movement.expense, movement.cheque,
            movement.memorandum)
        .run();
}

void TemporaryBook::addUser(const QString& name, const QString& password) const
{
    Connection auxiliary = openAuxiliary();
    lorvan::addUser(auxiliary, byAll(), name, password, {});
}

void TemporaryBook::close(QDate day) const
{
    Connection auxiliary = openAuxiliary();
    closeDay(auxiliary, byAll(), day);
}

void TemporaryBook::makeVersionless() const
{
    execute("DROP TABLE kinhseis;"
            "CREATE TABLE kinhseis (aa INTEGER PRIMARY KEY AUTOINCREMENT, kvdikos INTEGER, hmeromhnia INTEGER,"
            " perigrafh TEXT, esoda INTEGER, ejoda INTEGER, aa_omada INTEGER, grammh TEXT, epitagh INTEGER);"
            "DELETE FROM taytothta");
}

void leaveJournal(const QString& database, std::string_view change)
{
    std::map<QString, QByteArray> left;
    {
        Connection killed = openAt(database);
        killed.execute("PRAGMA cache_size = 2; BEGIN");
        killed.execute(change);
        killed.execute("CREATE TABLE spill AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<900)"
                       " SELECT randomblob(100) FROM n");
        for (const QString& path : {database, database + "-journal"})
            left[path] = readFile(path);
    }
    for (const auto& [path, bytes] : left)
        writeFile(path, bytes);
}

QString valueOf(Connection& connection, std::string_view sql)
{
    auto row = connection.prepare(sql);
    return row.step() ? row.text(0) : QString();
}

QByteArray rowsOf(Connection& connection, const QString& table, const QString& schema, const QStringList& without)
{
    QStringList columns;
    auto info = connection.prepare(QString("PRAGMA %1.table_info(\"%2\")").arg(schema, table).toStdString());
    while (info.step()) {
        if (!without.contains(info.text(1)))
            columns += info.text(1);
    }
    const QString values = "quote(" + columns.join(")||','||quote(") + u')';
    auto row = connection.prepare(
        QString("SELECT %1 FROM %2.\"%3\" ORDER BY %4").arg(values, schema, table, columns[0]).toStdString());
    QByteArray lines;
    while (row.step())
        lines += row.text(0).toUtf8() + '\n';
    return lines;
}

Clock fixedClock()
{
    return Clock(QDateTime(QDate(2024, 3, 15), QTime(12, 0)));
}

MovementDraft incomeOf(QDate day, Currency amount, const QString& description)
{
    return {TemporaryBook::incomeCode, day, description, amount, {}, {}, false};
}

MovementDraft expenseOf(QDate day, Currency amount, const QString& description)
{
    return {TemporaryBook::expenseCode, day, description, {}, amount, {}, false};
}

} // namespace lorvan::test
