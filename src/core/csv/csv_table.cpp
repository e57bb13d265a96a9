#include "csv/csv_table.h"

#include "platform/work.h"

#include <algorithm>

namespace lorvan {
namespace {

QFile& opened(QFile& file)
{
    if (!file.open(QIODevice::ReadOnly))
        throw Refused(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
    return file;
}

BadRow notUtf8()
{
    return BadRow(QStringLiteral("το αρχείο δεν είναι κείμενο UTF-8· αν είναι γραμμένο στην κωδικοσελίδα Windows-1253,"
                                 " αποθηκεύστε το ξανά ως UTF-8"),
        BadRow::Reach::File);
}

const CsvColumn& known(const QByteArray& title, const std::vector<CsvColumn>& columns)
{
    const auto found = std::find_if(columns.begin(), columns.end(),
        [&](const CsvColumn& each) { return each.name.compare(title, Qt::CaseInsensitive) == 0; });
    if (found == columns.end())
        throw BadRow(QStringLiteral("άγνωστη στήλη «%1»").arg(QString::fromUtf8(title)), BadRow::Reach::File);
    return *found;
}

} // namespace

BadRow::BadRow(const QString& reason, Reach reach)
    : std::runtime_error(reason.toStdString())
    , m_reach(reach)
{
}

CsvTable::CsvTable(const QString& path)
    : m_file(path)
    , m_reader(opened(m_file))
{
}

void CsvTable::readTitles(const std::vector<CsvColumn>& columns)
{
    if (!m_reader.read(m_row))
        throw BadRow(QStringLiteral("το αρχείο είναι κενό"), BadRow::Reach::File);
    if (!m_row.fault.isEmpty())
        throw BadRow(m_row.fault, BadRow::Reach::File);
    m_columnCount = m_row.fields.size();
    for (std::size_t place = 0; place < m_columnCount; ++place) {
        const QByteArray title = m_row.fields[place].bytes.trimmed();
        if (!title.isValidUtf8())
            throw notUtf8();
        if (!m_places.emplace(known(title, columns).name, place).second)
            throw BadRow(
                QStringLiteral("η στήλη %1 υπάρχει δύο φορές").arg(QString::fromUtf8(title)), BadRow::Reach::File);
    }
    for (const CsvColumn& each : columns) {
        if (each.need == CsvColumn::Need::Required && !has(each.name))
            throw BadRow(QStringLiteral("λείπει η στήλη %1").arg(QString::fromLatin1(each.name)), BadRow::Reach::File);
    }
}

bool CsvTable::next()
{
    if (!m_reader.read(m_row))
        return false;
    if (!m_row.fault.isEmpty())
        throw BadRow(m_row.fault);
    if (m_row.fields.size() != m_columnCount)
        throw BadRow(
            QStringLiteral("έχει %1 πεδία, ενώ οι στήλες είναι %2").arg(m_row.fields.size()).arg(m_columnCount));
    return true;
}

std::optional<QByteArray> CsvTable::field(const QByteArray& column) const
{
    const auto place = m_places.find(column);
    if (place == m_places.end())
        return std::nullopt;
    const CsvField& found = m_row.fields[place->second];
    return found.bytes.isEmpty() && !found.isQuoted ? std::nullopt : std::optional(found.bytes);
}

QByteArray CsvTable::bytes(const QByteArray& column) const
{
    const auto place = m_places.find(column);
    return place == m_places.end() ? QByteArray() : m_row.fields[place->second].bytes;
}

template <typename Read> auto CsvTable::value(const QByteArray& column, Read read) const
{
    const QByteArray field = bytes(column);
    if (!field.isValidUtf8())
        throw notUtf8();
    try {
        return read(field);
    } catch (const CsvValueError& error) {
        throw BadRow(QString::fromLatin1(column) + QStringLiteral(": ") + QString::fromUtf8(error.what()));
    }
}

std::optional<QString> CsvTable::text(const QByteArray& column) const
{
    const auto place = m_places.find(column);
    if (place == m_places.end())
        return std::nullopt;
    const CsvField& field = m_row.fields[place->second];
    if (field.bytes.isEmpty() && !field.isQuoted)
        return std::nullopt;
    return field.bytes.isEmpty() ? QStringLiteral("") : value(column, textFromCsv); // a null text means no value
}

qint32 CsvTable::number(const QByteArray& column) const
{
    return value(column, [](const QByteArray& field) { return numberFromCsv(field.trimmed()); });
}

qint32 CsvTable::number(const QByteArray& column, qint32 whereEmpty) const
{
    return bytes(column).isEmpty() ? whereEmpty : number(column);
}

qint64 CsvTable::longNumber(const QByteArray& column, qint64 whereEmpty) const
{
    return value(column, [whereEmpty](const QByteArray& field) {
        bool fits = true;
        const qint64 number = field.isEmpty() ? whereEmpty : field.trimmed().toLongLong(&fits);
        if (!fits)
            throw CsvValueError(QStringLiteral("το «%1» δεν είναι ακέραιος αριθμός").arg(QString::fromUtf8(field)));
        return number;
    });
}

QDate CsvTable::date(const QByteArray& column) const
{
    return value(column, [](const QByteArray& field) { return dateFromCsv(field.trimmed()); });
}

Currency CsvTable::amount(const QByteArray& column) const
{
    return value(
        column, [](const QByteArray& field) { return field.isEmpty() ? Currency() : amountFromCsv(field.trimmed()); });
}

bool CsvTable::flag(const QByteArray& column, bool whereEmpty) const
{
    return value(column,
        [whereEmpty](const QByteArray& field) { return field.isEmpty() ? whereEmpty : flagFromCsv(field.trimmed()); });
}

} // namespace lorvan
