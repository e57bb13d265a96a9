#include "csv/csv_reader.h"

#include "platform/stop_check.h"
#include "platform/work.h"

#include <QIODevice>

namespace lorvan {
namespace {

constexpr qint64 readAtOnce = 1 << 16;
constexpr qsizetype longestTitles = 4096;

char separatorOf(const QByteArray& beginning)
{
    for (const char each : beginning) {
        if (each == ',' || each == ';' || each == '\t')
            return each;
        if (each == '\n')
            break;
    }
    return ',';
}

QString faultOfSize(std::size_t fields, qsizetype length)
{
    if (fields >= CsvReader::mostFields)
        return QStringLiteral("η γραμμή έχει πάνω από %1 πεδία").arg(CsvReader::mostFields);
    if (length > CsvReader::longestRow)
        return QStringLiteral("η γραμμή είναι υπερβολικά μεγάλη");
    return {};
}

} // namespace

CsvReader::CsvReader(QIODevice& device)
    : m_device(device)
    , m_separator(separatorOf(device.peek(longestTitles)))
{
    const QByteArray utf8Mark("\xEF\xBB\xBF");
    if (device.peek(utf8Mark.size()) == utf8Mark)
        m_bytesRead = device.skip(utf8Mark.size());
}

void CsvReader::fill()
{
    continueOrGiveUp();
    m_buffer = m_device.read(readAtOnce);
    m_next = 0;
    m_bytesRead += m_buffer.size();
    if (m_buffer.isEmpty() && !m_device.atEnd())
        throw Refused(m_device.errorString());
}

int CsvReader::peek()
{
    if (m_next == m_buffer.size())
        fill();
    return m_buffer.isEmpty() ? end : static_cast<unsigned char>(m_buffer[m_next]);
}

int CsvReader::take()
{
    const int each = peek();
    if (each != end)
        ++m_next;
    if (each == '\n')
        ++m_line;
    return each;
}

bool CsvReader::atLineEnd()
{
    return peek() == '\n' || peek() == '\r' || peek() == end;
}

/// A CR without LF also ends a line, so that such a file fails in its first line.
void CsvReader::takeLineEnd()
{
    if (peek() == '\r')
        take();
    if (peek() == '\n')
        take();
}

void CsvReader::skipLine()
{
    while (peek() != '\n' && peek() != end)
        take();
    take();
}

QString CsvReader::readQuoted(CsvField& field)
{
    field.isQuoted = true;
    take();
    for (;;) {
        const int each = take();
        if (each == end || field.bytes.size() > longestField) {
            while (take() != end) { }
            return QStringLiteral("τα εισαγωγικά που ανοίγουν εδώ δεν κλείνουν");
        }
        if (each == '"' && peek() != '"')
            break;
        if (each == '"')
            take();
        field.bytes += static_cast<char>(each);
    }
    if (peek() == m_separator || atLineEnd())
        return {};
    return QStringLiteral("μετά τα εισαγωγικά που κλείνουν υπάρχει και άλλο κείμενο");
}

QString CsvReader::readPlain(CsvField& field)
{
    while (peek() != m_separator && !atLineEnd()) {
        if (peek() == '"')
            return QStringLiteral("εισαγωγικά μέσα σε πεδίο που δεν αρχίζει με εισαγωγικά");
        if (field.bytes.size() > longestField)
            return QStringLiteral("το πεδίο είναι υπερβολικά μεγάλο");
        field.bytes += static_cast<char>(take());
    }
    return {};
}

QString CsvReader::readField(CsvField& field)
{
    return peek() == '"' ? readQuoted(field) : readPlain(field);
}

bool CsvReader::read(CsvRow& row)
{
    while (peek() != end && atLineEnd())
        takeLineEnd();
    row = {m_line, {}, {}};
    if (peek() == end)
        return false;
    for (qsizetype length = 0;;) {
        row.fault = readField(row.fields.emplace_back());
        length += row.fields.back().bytes.size();
        if (row.fault.isEmpty() && peek() == m_separator)
            row.fault = faultOfSize(row.fields.size(), length);
        if (!row.fault.isEmpty()) {
            row.fields.clear();
            skipLine();
            return true;
        }
        if (peek() != m_separator) {
            takeLineEnd();
            return true;
        }
        take();
    }
}

} // namespace lorvan
