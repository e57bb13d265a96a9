#include "book/schema_guard.h"

#include "book/book_schema.h"
#include "platform/engine/connection.h"
#include "platform/printable_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <vector>

namespace lorvan {
namespace {

/// The columns of each table at the current version.
using Tables = std::map<QString, QStringList>;

Tables tablesFrom(const std::vector<std::pair<const char*, const char*>>& lines)
{
    Tables tables;
    for (const auto& [table, columns] : lines)
        tables.emplace(QLatin1String(table), QString::fromLatin1(columns).split(u' '));
    return tables;
}

const Tables& tablesOf(BookDatabase database)
{
    static const Tables main =
        tablesFrom({{"kinhseis", "aa kvdikos hmeromhnia perigrafh esoda ejoda aa_omada grammh epitagh L_tajeos"},
            {"tameio", "aa hmeromhnia esoda ejoda ypoloipo"},
            {"kvdikoi", "aa kvdikos perigrafh omada aa_omadas lista esodo energos"}, {"omades", "aa sxolia perigrafh"},
            {"taytothta", "ariumos"}, {"taken_imports", "id digest at groups codes movements"},
            {openingDifferenceTable, "day amount"},
            {journalTable, "id at user computer action subject day code before after previous hash"}});
    static const Tables auxiliary =
        tablesFrom({{"klhsimotameioy", "aa hmeraklhsimatos"}, {"codes", "uname upass r_eggrafes r_klhsimo r_kvdikoi"},
            {sealsTable,
                "id at user computer day version late income expense movements content previous journal hash"
                " carried balance balance_hash counted"}});
    return database == BookDatabase::Main ? main : auxiliary;
}

bool isIn(const Tables& tables, const QString& name)
{
    return std::any_of(tables.begin(), tables.end(),
        [&](const auto& table) { return table.first.compare(name, Qt::CaseInsensitive) == 0; });
}

bool isOurs(const QString& name)
{
    return isIn(tablesOf(BookDatabase::Main), name) || isIn(tablesOf(BookDatabase::Auxiliary), name);
}

enum class Kind { Table, Index, View, VirtualTable, Trigger, Unknown };

struct Object {
    Kind kind = Kind::Unknown;
    QString name;
    QString sql;
};

QString quoted(const QString& name)
{
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// The name at the start of a text, in the form that the engine writes into its schema.
QString nameAt(const QString& text)
{
    static const QString openers = QStringLiteral("\"`'[");
    if (text.isEmpty() || !openers.contains(text[0]))
        return text.section(u' ', 0, 0).section(u'(', 0, 0);
    const QChar closer = text[0] == u'[' ? u']' : text[0];
    QString name;
    for (qsizetype i = 1; i < text.size(); ++i) {
        const bool isDoubled = closer != u']' && i + 1 < text.size() && text[i + 1] == closer;
        if (text[i] == closer && !isDoubled)
            break;
        i += text[i] == closer ? 1 : 0;
        name += text[i];
    }
    return name;
}

/// The engine goes only by the text of the statement, so a row that contradicts it is of no known kind.
Kind kindOf(const QString& type, const QString& name, const QString& sql)
{
    struct Form {
        const char* type;
        const char* beginning;
        Kind kind;
    };
    static constexpr Form forms[] = {{"table", "CREATE TABLE ", Kind::Table},
        {"table", "CREATE VIRTUAL TABLE ", Kind::VirtualTable}, {"view", "CREATE VIEW ", Kind::View},
        {"trigger", "CREATE TRIGGER ", Kind::Trigger}, {"index", "CREATE INDEX ", Kind::Index},
        {"index", "CREATE UNIQUE INDEX ", Kind::Index}};
    if (type == QLatin1String("index") && sql.isEmpty())
        return Kind::Index; // the engine's own, of a constraint
    for (const Form& form : forms) {
        const QLatin1String beginning(form.beginning);
        if (type == QLatin1String(form.type) && sql.startsWith(beginning)
            && nameAt(sql.mid(beginning.size())).compare(name, Qt::CaseInsensitive) == 0)
            return form.kind;
    }
    return Kind::Unknown;
}

std::vector<Object> objectsOf(Connection& connection, const QString& schema)
{
    std::vector<Object> objects;
    auto rows = connection.prepare(
        QStringLiteral("SELECT type, name, sql FROM %1.sqlite_master ORDER BY name").arg(quoted(schema)).toStdString());
    while (rows.step())
        objects.push_back({kindOf(rows.text(0), rows.text(1), rows.text(2)), rows.text(1), rows.text(2)});
    return objects;
}

QString lineFor(const Object& object)
{
    static const std::map<Kind, QString> kinds{{Kind::Table, QStringLiteral("πίνακας")},
        {Kind::Index, QStringLiteral("ευρετήριο")}, {Kind::View, QStringLiteral("προβολή (view)")},
        {Kind::VirtualTable, QStringLiteral("εικονικός πίνακας (virtual table)")},
        {Kind::Trigger, QStringLiteral("έναυσμα (trigger)")},
        {Kind::Unknown, QStringLiteral("αντικείμενο άγνωστου είδους")}};
    return QStringLiteral("%1 «%2»").arg(kinds.at(object.kind), printableName(object.name));
}

QStringList texts(Connection& connection, const QString& pragma, int column)
{
    QStringList found;
    auto rows = connection.prepare(pragma.toStdString());
    while (rows.step())
        found += rows.text(column);
    return found;
}

bool computes(Connection& connection, const QString& schema, const QString& index)
{
    constexpr std::int64_t expression = -2;
    auto rows =
        connection.prepare(QStringLiteral("PRAGMA %1.index_info(%2)").arg(quoted(schema), quoted(index)).toStdString());
    while (rows.step()) {
        if (rows.integer(1) == expression)
            return true;
    }
    return false;
}

/// Whether a table's statement contains one of these words (given in capitals) as a word of its own: not in a text, a
/// quoted name or a comment. Read as the engine reads it.
bool saysAny(const QString& sql, const QStringList& words)
{
    static const QRegularExpression pieces(
        QStringLiteral(
            "'(?:[^']|'')*'|\"(?:[^\"]|\"\")*\"|`(?:[^`]|``)*`|\\[[^\\]]*\\]|--[^\\n]*|/\\*.*?(?:\\*/|$)|(\\w+)"),
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::UseUnicodePropertiesOption);
    auto found = pieces.globalMatch(sql);
    while (found.hasNext()) {
        if (words.contains(found.next().captured(1).toUpper()))
            return true;
    }
    return false;
}

/// A column's default value: a number or a text, not an expression.
bool isLiteral(const QString& standard)
{
    static const QRegularExpression literal(QStringLiteral("^(?:|NULL|[-+]?[0-9]+(?:\\.[0-9]*)?|'(?:[^']|'')*')$"),
        QRegularExpression::CaseInsensitiveOption);
    return literal.match(standard.trimmed()).hasMatch();
}

class Inspector {
public:
    Inspector(Connection& connection, const QString& schema, BookDatabase database)
        : m_connection(connection)
        , m_schema(schema)
        , m_tables(tablesOf(database))
        , m_file(database == BookDatabase::Main ? QStringLiteral("lorvan.mdb: ") : QStringLiteral("mapcodes.mdb: "))
        , m_objects(objectsOf(connection, schema))
    {
    }

    SchemaInspection run()
    {
        for (const Object& object : m_objects)
            judge(object);
        for (const auto& [table, columns] : m_tables)
            compare(table, columns);
        return m_found;
    }

private:
    void judge(const Object& object)
    {
        switch (object.kind) {
        case Kind::Table:
            if (!isIn(m_tables, object.name) && !object.name.startsWith(QLatin1String("sqlite_")))
                add(isOurs(object.name) ? m_found.foreign : m_found.others, lineFor(object));
            break;
        case Kind::Index:
            if (computes(m_connection, m_schema, object.name))
                add(m_found.unreadable, lineFor(object) + QStringLiteral(" πάνω σε παράσταση"));
            else if (!object.sql.isEmpty() && !object.name.startsWith(QLatin1String("lorvan_")))
                add(m_found.others, lineFor(object));
            break;
        case Kind::View:
        case Kind::VirtualTable:
            add(isOurs(object.name) ? m_found.unreadable : m_found.foreign, lineFor(object));
            break;
        case Kind::Trigger:
            add(m_found.foreign, lineFor(object));
            break;
        case Kind::Unknown:
            add(m_found.unreadable, lineFor(object));
            break;
        }
    }

    [[nodiscard]] QStringList columnsOf(const QString& table) const
    {
        return texts(m_connection, QStringLiteral("PRAGMA %1.table_info(%2)").arg(quoted(m_schema), table), 1);
    }

    /// The memorandum column was added with the current version.
    [[nodiscard]] bool mayLack(const QString& column) const
    {
        if (column != QLatin1String("L_tajeos") || columnsOf(QStringLiteral("taytothta")).isEmpty()
            || !m_found.unreadable.isEmpty())
            return false;
        auto row = m_connection.prepare(
            QStringLiteral("SELECT ariumos FROM %1.taytothta LIMIT 1").arg(quoted(m_schema)).toStdString());
        return !row.step() || row.integer(0) < currentSchemaVersion;
    }

    /// Rules of a table that drop rows, replace others or compute something whenever a row is written.
    void judgeRules(const Object& table)
    {
        const auto pragma = [&](const char* name) {
            return QStringLiteral("PRAGMA %1.%2(%3)")
                .arg(quoted(m_schema), QLatin1String(name), quoted(table.name))
                .toStdString();
        };
        if (saysAny(table.sql, {QStringLiteral("WITHOUT")}))
            add(m_found.unreadable, QStringLiteral("πίνακας «%1» χωρίς κλειδί γραμμής").arg(table.name));
        if (saysAny(table.sql, {QStringLiteral("CHECK"), QStringLiteral("CONFLICT")}))
            add(m_found.foreign, QStringLiteral("κανόνας στον πίνακα «%1» (CHECK ή ON CONFLICT)").arg(table.name));
        auto columns = m_connection.prepare(pragma("table_info"));
        while (columns.step()) {
            if (!isLiteral(columns.text(4)))
                add(m_found.foreign,
                    QStringLiteral("τιμή που υπολογίζεται στη στήλη «%1» του πίνακα «%2»")
                        .arg(printableName(columns.text(1)), table.name));
        }
        auto indexes = m_connection.prepare(pragma("index_list"));
        while (indexes.step()) {
            if (indexes.integer(4) != 0 && !isOfCheques(indexes.text(1)))
                add(m_found.foreign,
                    QStringLiteral("ευρετήριο «%1» με συνθήκη στον πίνακα «%2»")
                        .arg(printableName(indexes.text(1)), table.name));
        }
    }

    [[nodiscard]] bool isOfCheques(const QString& index) const
    {
        const auto object = std::find_if(m_objects.begin(), m_objects.end(),
            [&](const Object& each) { return each.kind == Kind::Index && each.name == index; });
        return object != m_objects.end() && indexCondition(object->sql) == QLatin1String(chequeCondition);
    }

    void compare(const QString& table, const QStringList& columns)
    {
        const auto object = std::find_if(m_objects.begin(), m_objects.end(), [&](const Object& each) {
            return each.kind == Kind::Table && each.name.compare(table, Qt::CaseInsensitive) == 0;
        });
        const bool isTable = object != m_objects.end();
        if (!isTable && isOwnTable(table))
            return;
        if (!isTable) {
            add(m_found.unreadable, QStringLiteral("λείπει ο πίνακας «%1»").arg(table));
            return;
        }
        judgeRules(*object);
        const QStringList found = columnsOf(table);
        for (const QString& column : columns) {
            if (!found.contains(column, Qt::CaseInsensitive) && !mayLack(column))
                add(m_found.unreadable, QStringLiteral("από τον πίνακα «%1» λείπει η στήλη «%2»").arg(table, column));
        }
        for (const QString& column : found) {
            if (!columns.contains(column, Qt::CaseInsensitive))
                add(m_found.others, QStringLiteral("στήλη «%1» στον πίνακα «%2»").arg(printableName(column), table));
        }
    }

    void add(QStringList& list, const QString& line) const { list += m_file + line; }

    Connection& m_connection;
    QString m_schema;
    const Tables& m_tables;
    QString m_file;
    std::vector<Object> m_objects;
    SchemaInspection m_found;
};

bool standsIn(const Object& object)
{
    if (object.kind == Kind::View || object.kind == Kind::VirtualTable)
        return isOurs(object.name);
    const auto isNamed = [&](const auto& table) { return object.sql.contains(table.first, Qt::CaseInsensitive); };
    const Tables& main = tablesOf(BookDatabase::Main);
    const Tables& auxiliary = tablesOf(BookDatabase::Auxiliary);
    return object.kind == Kind::Unknown
        && (isOurs(object.name) || std::any_of(main.begin(), main.end(), isNamed)
            || std::any_of(auxiliary.begin(), auxiliary.end(), isNamed));
}

} // namespace

ForeignObjects::ForeignObjects(const QStringList& objects)
    : std::runtime_error(QStringLiteral("Το βιβλίο περιέχει κάτι ξένο ή του λείπει κάτι: %1.")
                             .arg(objects.join(QStringLiteral("· ")))
                             .toStdString())
{
}

SchemaInspection inspectSchema(Connection& connection, const QString& schema, BookDatabase database)
{
    return Inspector(connection, schema, database).run();
}

void requirePlainSchema(Connection& connection, BookDatabase database)
{
    const SchemaInspection found = inspectSchema(connection, QStringLiteral("main"), database);
    if (!found.isPlain())
        throw ForeignObjects(found.unreadable + found.foreign);
}

void refuseForeignObjects(Connection& connection)
{
    QStringList found;
    for (const QString& schema : texts(connection, QStringLiteral("PRAGMA database_list"), 1)) {
        for (const Object& object : objectsOf(connection, schema)) {
            if (standsIn(object))
                found += lineFor(object);
        }
    }
    if (!found.isEmpty())
        throw ForeignObjects(found);
}

} // namespace lorvan
