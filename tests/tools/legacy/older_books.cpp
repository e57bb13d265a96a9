#include "tools/legacy/older_books.h"

#include <QFile>
#include <QRegularExpression>

#include <cmath>

namespace lorvan::test {
namespace {

bool isAmount(const QString& column)
{
    static const QStringList names{QStringLiteral("esoda"), QStringLiteral("ejoda"), QStringLiteral("L_tajeos"),
        QStringLiteral("ypoloipo"), QStringLiteral("synolo_esodvn"), QStringLiteral("synolo_ejodvn")};
    return names.contains(column);
}

bool isBoolean(const QString& column)
{
    return column.startsWith(QStringLiteral("r_")) || column == QStringLiteral("esodo")
        || column == QStringLiteral("energos") || column == QStringLiteral("epitagh");
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

/// A field of a truth file in today's form. Every amount in the sample books is a whole number of cents.
QString todaysForm(const QString& column, const QString& field)
{
    static const QRegularExpression dashes(QStringLiteral("^(\\d{4})-(\\d\\d)-(\\d\\d)$"));
    if (field.isEmpty())
        return isAmount(column) ? QStringLiteral("0") : QStringLiteral("NULL");
    if (field.startsWith(u'"'))
        return quoted(field.mid(1, field.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\"")));
    if (isBoolean(column))
        return field == QStringLiteral("0") ? field : u'-' + field;
    if (isAmount(column))
        return QString::number(std::llround(field.toDouble() * 100) * 100);
    return QString(field).replace(dashes, QStringLiteral("\\1\\2\\3"));
}

QStringList fieldsOf(const QString& line)
{
    static const QRegularExpression field(QStringLiteral("(?:^|,)(\"(?:[^\"]|\"\")*\"|[^,]*)"));
    QStringList fields;
    for (auto match = field.globalMatch(line); match.hasNext();)
        fields += match.next().captured(1);
    return fields;
}

} // namespace

QString olderBook(const QString& name)
{
    return QStringLiteral(LORVAN_TEST_DATA "/") + name;
}

QByteArray fileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<TruthRow> truthRows(const QString& book, const QString& table)
{
    const QString content = QString::fromUtf8(fileContent(olderBook(book) + u'/' + table + QStringLiteral(".csv")));
    QStringList lines = content.split(u'\n');
    lines.removeLast(); // behind the last line end
    const QStringList columns = fieldsOf(lines.takeFirst());
    std::vector<TruthRow> rows;
    for (const QString& line : lines) {
        const QStringList fields = fieldsOf(line);
        TruthRow row;
        for (qsizetype i = 0; i < columns.size(); ++i)
            row.push_back(todaysForm(columns[i], fields.value(i)));
        if (table == QStringLiteral("kinhseis") && columns.last() != QStringLiteral("L_tajeos"))
            row.push_back(QStringLiteral("0"));
        rows.push_back(row);
    }
    return rows;
}

std::vector<TruthRow> storedRows(Connection& connection, const QString& table)
{
    QStringList values;
    auto info = connection.prepare(QStringLiteral("PRAGMA table_info(%1)").arg(table).toStdString());
    while (info.step())
        values += QStringLiteral("quote(%1)").arg(info.text(1));
    auto select = connection.prepare(QStringLiteral("SELECT %1 FROM %2 ORDER BY %2.%3")
                                         .arg(values.join(u','), table, values[0].mid(6).chopped(1))
                                         .toStdString());
    std::vector<TruthRow> rows;
    while (select.step()) {
        TruthRow row;
        for (int i = 0; i < values.size(); ++i)
            row.push_back(select.text(i));
        rows.push_back(row);
    }
    return rows;
}

} // namespace lorvan::test
