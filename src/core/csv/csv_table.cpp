#include "csv/csv_table.h"

#include "platform/files/system_reason.h"
#include "platform/work.h"

#include <algorithm>

namespace lorvan {
namespace {

QFile& opened(QFile& file)
{
    if (!file.open(QIODevice::ReadOnly))
        throw Refused(QStringLiteral("%1: %2").arg(file.fileName(), systemReason(file.errorString())));
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
    for (const CsvField& each : m_row.fields) {
        const QByteArray title = each.bytes.trimmed();
        if (!title.isValidUtf8())
            throw notUtf8();
        const QByteArray& name = known(title, columns).name;
        if (has(name))
            throw BadRow(
                QStringLiteral("η στήλη %1 υπάρχει δύο φορές").arg(QString::fromUtf8(title)), BadRow::Reach::File);
        m_titles.push_back(name);
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
    if (m_row.fields.size() != m_titles.size())
        throw BadRow(
            QStringLiteral("έχει %1 πεδία, ενώ οι στήλες είναι %2").arg(m_row.fields.size()).arg(m_titles.size()));
    return true;
}

/// There are ten columns at most.
std::optional<std::size_t> CsvTable::placeOf(QByteArrayView column) const
{
    const auto found = std::find(m_titles.begin(), m_titles.end(), column);
    return found == m_titles.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - m_titles.begin()));
}

std::optional<QByteArray> CsvTable::field(QByteArrayView column) const
{
    const auto place = placeOf(column);
    if (!place)
        return std::nullopt;
    const CsvField& found = m_row.fields[*place];
    return found.bytes.isEmpty() && !found.isQuoted ? std::nullopt : std::optional(found.bytes);
}

QByteArray CsvTable::bytes(QByteArrayView column) const
{
    const auto place = placeOf(column);
    return place ? m_row.fields[*place].bytes : QByteArray();
}

template <typename Read> auto CsvTable::value(QByteArrayView column, Read read) const
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

std::optional<QString> CsvTable::text(QByteArrayView column) const
{
    const auto place = placeOf(column);
    if (!place)
        return std::nullopt;
    const CsvField& field = m_row.fields[*place];
    if (field.bytes.isEmpty() && !field.isQuoted)
        return std::nullopt;
    return field.bytes.isEmpty() ? QStringLiteral("") : value(column, textFromCsv); // a null text means no value
}

qint32 CsvTable::number(QByteArrayView column) const
{
    return value(column, [](const QByteArray& field) { return numberFromCsv(field.trimmed()); });
}

qint32 CsvTable::number(QByteArrayView column, qint32 whereEmpty) const
{
    return bytes(column).isEmpty() ? whereEmpty : number(column);
}

qint64 CsvTable::longNumber(QByteArrayView column, qint64 whereEmpty) const
{
    return value(column, [whereEmpty](const QByteArray& field) {
        bool fits = true;
        const qint64 number = field.isEmpty() ? whereEmpty : field.trimmed().toLongLong(&fits);
        if (!fits)
            throw CsvValueError(QStringLiteral("το «%1» δεν είναι ακέραιος αριθμός").arg(QString::fromUtf8(field)));
        return number;
    });
}

QDate CsvTable::date(QByteArrayView column) const
{
    return value(column, [](const QByteArray& field) { return dateFromCsv(field.trimmed()); });
}

Currency CsvTable::amount(QByteArrayView column) const
{
    return value(
        column, [](const QByteArray& field) { return field.isEmpty() ? Currency() : amountFromCsv(field.trimmed()); });
}

bool CsvTable::flag(QByteArrayView column, bool whereEmpty) const
{
    return value(column,
        [whereEmpty](const QByteArray& field) { return field.isEmpty() ? whereEmpty : flagFromCsv(field.trimmed()); });
}

} // namespace lorvan
