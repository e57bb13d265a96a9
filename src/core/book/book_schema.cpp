#include "book/book_schema.h"

#include "book/journal_beginning.h"
#include "book/opening_steps.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <algorithm>
#include <vector>

namespace lorvan {
namespace {

constexpr auto mainTables = R"(
CREATE TABLE kinhseis (
    aa INTEGER PRIMARY KEY AUTOINCREMENT,
    kvdikos INTEGER,
    hmeromhnia INTEGER,
    perigrafh TEXT,
    esoda INTEGER,
    ejoda INTEGER,
    aa_omada INTEGER,
    grammh TEXT,
    epitagh INTEGER,
    L_tajeos INTEGER
);
CREATE TABLE tameio (
    aa INTEGER PRIMARY KEY AUTOINCREMENT,
    hmeromhnia INTEGER,
    esoda INTEGER,
    ejoda INTEGER,
    ypoloipo INTEGER
);
CREATE TABLE kvdikoi (
    aa INTEGER PRIMARY KEY AUTOINCREMENT,
    kvdikos INTEGER,
    perigrafh TEXT,
    omada TEXT,
    aa_omadas INTEGER,
    lista TEXT,
    esodo INTEGER,
    energos INTEGER
);
CREATE TABLE omades (
    aa INTEGER PRIMARY KEY AUTOINCREMENT,
    sxolia TEXT,
    perigrafh TEXT
);
CREATE TABLE taytothta (ariumos INTEGER);
)";

/// What has been imported from files (see csv_import.h), and cash that was counted (opening_difference.h).
constexpr auto ownTablesSql = R"(
CREATE TABLE IF NOT EXISTS taken_imports (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    digest TEXT,
    at INTEGER,
    groups INTEGER,
    codes INTEGER,
    movements INTEGER
);
CREATE TABLE IF NOT EXISTS opening_difference (day INTEGER PRIMARY KEY, amount INTEGER);
)";

/// Who changed what (journal.h).
constexpr auto journalSql = R"(
CREATE TABLE IF NOT EXISTS journal (
    id INTEGER PRIMARY KEY,
    at INTEGER,
    user TEXT,
    computer TEXT,
    action TEXT,
    subject TEXT,
    day INTEGER,
    code INTEGER,
    before TEXT,
    after TEXT,
    previous TEXT,
    hash TEXT
);
CREATE INDEX IF NOT EXISTS lorvan_journal_day ON journal(day);
CREATE INDEX IF NOT EXISTS lorvan_journal_subject ON journal(subject);
)";

/// What closed days held: see day_seal.h.
constexpr auto sealsSql = R"(
CREATE TABLE IF NOT EXISTS %1.seals (
    id INTEGER PRIMARY KEY,
    at INTEGER,
    user TEXT,
    computer TEXT,
    day INTEGER,
    version INTEGER,
    late INTEGER,
    income INTEGER,
    expense INTEGER,
    movements INTEGER,
    content TEXT,
    previous TEXT,
    journal TEXT,
    hash TEXT,
    carried INTEGER,
    balance INTEGER,
    balance_hash TEXT,
    counted TEXT
);
CREATE INDEX IF NOT EXISTS %1.lorvan_seals_day ON seals(day);
)";

constexpr auto auxiliaryTables = R"(
CREATE TABLE klhsimotameioy (
    aa INTEGER PRIMARY KEY AUTOINCREMENT,
    hmeraklhsimatos INTEGER
);
CREATE TABLE codes (
    uname TEXT,
    upass TEXT,
    r_eggrafes INTEGER,
    r_klhsimo INTEGER,
    r_kvdikoi INTEGER
);
)";

const QString mainDatabase = QStringLiteral("main"); // whichever file the connection has opened

struct Index {
    QString table;
    QString column;
    QString carried = {}; ///< Further columns, so that sums and cheques need not read the rows.
    QString condition = {}; ///< Of the rows that are in it, without blanks; empty for all rows.
};

const std::vector<Index>& mainIndexes()
{
    static const std::vector<Index> indexes{
        {QStringLiteral("kinhseis"), QStringLiteral("hmeromhnia")},
        {QStringLiteral("kinhseis"), QStringLiteral("kvdikos"), QStringLiteral(", hmeromhnia, esoda, ejoda, L_tajeos")},
        {QStringLiteral("kinhseis"), QStringLiteral("hmeromhnia"),
            QStringLiteral(", kvdikos, perigrafh, esoda, ejoda, epitagh, L_tajeos"), QLatin1String(chequeCondition)},
        {QStringLiteral("tameio"), QStringLiteral("hmeromhnia")},
        {QStringLiteral("kvdikoi"), QStringLiteral("kvdikos")},
    };
    return indexes;
}

const std::vector<Index>& auxiliaryIndexes()
{
    static const std::vector<Index> indexes{{QStringLiteral("klhsimotameioy"), QStringLiteral("hmeraklhsimatos")}};
    return indexes;
}

/// The names of a table's indexes. The table names are constants of this file.
std::vector<QString> indexNames(Connection& connection, const QString& table)
{
    std::vector<QString> names;
    auto list = connection.prepare("SELECT name FROM sqlite_master WHERE type='index' AND tbl_name=? COLLATE NOCASE");
    list.bind(table);
    while (list.step())
        names.push_back(list.text(0));
    return names;
}

QString firstColumn(Connection& connection, const QString& index)
{
    const QString quoted = QString(index).replace(u'"', QStringLiteral("\"\""));
    auto info = connection.prepare(QStringLiteral("PRAGMA index_info(\"%1\")").arg(quoted).toStdString());
    return info.step() ? info.text(2) : QString();
}

QString conditionOf(Connection& connection, const QString& index)
{
    auto row = connection.prepare("SELECT sql FROM sqlite_master WHERE type='index' AND name=?");
    row.bind(index);
    return row.step() ? indexCondition(row.text(0)) : QString();
}

bool isThere(Connection& connection, const Index& wanted)
{
    for (const QString& name : indexNames(connection, wanted.table)) {
        if (firstColumn(connection, name).compare(wanted.column, Qt::CaseInsensitive) == 0
            && conditionOf(connection, name) == wanted.condition)
            return true;
    }
    return false;
}

void createIndex(Connection& connection, const Index& index)
{
    const QString name = index.condition.isEmpty() ? index.column : index.column + QStringLiteral("_cheques");
    QString statement = QStringLiteral("CREATE INDEX IF NOT EXISTS lorvan_%1_%2 ON %1(%3%4)")
                            .arg(index.table, name, index.column, index.carried);
    if (!index.condition.isEmpty())
        statement += QStringLiteral(" WHERE ") + index.condition;
    connection.execute(statement.toStdString());
}

void ensureIndexes(Connection& connection, const std::vector<Index>& wanted)
{
    std::vector<Index> missing;
    for (const Index& index : wanted) {
        if (!isThere(connection, index))
            missing.push_back(index);
    }
    if (missing.empty())
        return;
    Transaction transaction(connection, Authority::program());
    for (const Index& index : missing)
        createIndex(connection, index);
    transaction.commit();
}

void createTables(Connection& connection, std::string_view tables, const std::vector<Index>& indexes)
{
    connection.execute(tables);
    for (const Index& index : indexes)
        createIndex(connection, index);
}

/// In the file as it is now, which another computer may have changed since the statement before.
bool hasTable(Connection& connection, const QString& name)
{
    return connection.prepare("SELECT 1 FROM sqlite_master WHERE type='table' AND name=? COLLATE NOCASE")
        .bind(name)
        .step();
}

bool lacksOwnTable(Connection& connection)
{
    return !std::all_of(
        ownTables().begin(), ownTables().end(), [&](const QString& name) { return hasTable(connection, name); });
}

/// Another computer may have made them by now.
void ensureOwnTables(Connection& main, Connection& auxiliary, const OpeningSteps& steps)
{
    Transaction transaction(main, Authority::program());
    const bool knowsDifferences = hasTable(main, QLatin1String(openingDifferenceTable));
    createOwnTables(main);
    if (!knowsDifferences)
        steps.adopt(main, auxiliary);
    beginJournal(main, auxiliary); // what it says of opening differences must not keep them from being looked for
    transaction.commit();
}

} // namespace

const QStringList& ownTables()
{
    static const QStringList names{
        QStringLiteral("taken_imports"), QLatin1String(openingDifferenceTable), QLatin1String(journalTable)};
    return names;
}

QString indexCondition(const QString& statement)
{
    const qsizetype where = statement.lastIndexOf(QStringLiteral("WHERE"), -1, Qt::CaseInsensitive);
    if (where < 0)
        return {};
    QString condition = statement.mid(where + 5).toLower(); // the word itself
    condition.removeIf([](QChar character) { return character.isSpace(); });
    return condition;
}

bool isOwnTable(const QString& name)
{
    return ownTables().contains(name) || name == QLatin1String(sealsTable);
}

void createOwnTables(Connection& connection)
{
    connection.execute(ownTablesSql);
    createJournalTable(connection);
}

void createJournalTable(Connection& connection)
{
    connection.execute(journalSql);
}

void createMainSchema(Connection& connection)
{
    Transaction transaction(connection, Authority::program());
    createTables(connection, mainTables, mainIndexes());
    createOwnTables(connection);
    connection.prepare("INSERT INTO taytothta (ariumos) VALUES (?)").bind(currentSchemaVersion).run();
    transaction.commit();
}

void createAuxiliarySchema(Connection& connection)
{
    Transaction transaction(connection, Authority::program());
    createTables(connection, auxiliaryTables, auxiliaryIndexes());
    createSealsTable(connection, mainDatabase);
    transaction.commit();
}

void ensureMainSchema(Connection& main, Connection& auxiliary, const OpeningSteps& steps)
{
    if (lacksOwnTable(main))
        ensureOwnTables(main, auxiliary, steps);
    ensureIndexes(main, mainIndexes());
}

void ensureAuxiliarySchema(Connection& connection)
{
    if (!hasTable(connection, QLatin1String(sealsTable))) {
        Transaction transaction(connection, Authority::program());
        createSealsTable(connection, mainDatabase);
        transaction.commit();
    }
    ensureIndexes(connection, auxiliaryIndexes());
}

void createSealsTable(Connection& connection, const QString& database)
{
    connection.execute(QString::fromLatin1(sealsSql).arg(database).toStdString());
}

} // namespace lorvan
