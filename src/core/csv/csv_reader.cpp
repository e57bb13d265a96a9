#include "csv/csv_reader.h"

#include "platform/files/system_reason.h"
#include "platform/stop_check.h"
#include "platform/work.h"

#include <QIODevice>

#include <algorithm>

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
        throw Refused(systemReason(m_device.errorString()));
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
        const qsizetype run = plainBytesAhead();
        field.bytes.append(m_buffer.constData() + m_next, run);
        m_next += run;
    }
    if (peek() == m_separator || atLineEnd())
        return {};
    return QStringLiteral("μετά τα εισαγωγικά που κλείνουν υπάρχει και άλλο κείμενο");
}

/// How many bytes of the buffer come before one that may end a plain field.
qsizetype CsvReader::plainBytesAhead() const
{
    const auto ends = [this](char c) { return c == m_separator || c == '\n' || c == '\r' || c == '"'; };
    const auto begin = m_buffer.cbegin() + m_next;
    return std::find_if(begin, m_buffer.cend(), ends) - begin;
}

QString CsvReader::readPlain(CsvField& field)
{
    while (peek() != m_separator && !atLineEnd()) {
        if (peek() == '"')
            return QStringLiteral("εισαγωγικά μέσα σε πεδίο που δεν αρχίζει με εισαγωγικά");
        if (field.bytes.size() > longestField)
            return QStringLiteral("το πεδίο είναι υπερβολικά μεγάλο");
        const qsizetype run = plainBytesAhead();
        field.bytes.append(m_buffer.constData() + m_next, run);
        m_next += run;
    }
    return {};
}

QString CsvReader::readField(CsvField& field)
{
    return peek() == '"' ? readQuoted(field) : readPlain(field);
}

/// The fields of one line. Those of the row before are overwritten, so that their memory serves again.
QString CsvReader::readRow(CsvRow& row)
{
    std::size_t count = 0;
    for (qsizetype length = 0;; take()) {
        if (count == row.fields.size())
            row.fields.emplace_back();
        CsvField& field = row.fields[count++];
        field.bytes.resize(0);
        field.isQuoted = false;
        QString fault = readField(field);
        length += field.bytes.size();
        if (fault.isEmpty() && peek() == m_separator)
            fault = faultOfSize(count, length);
        if (!fault.isEmpty())
            return fault;
        if (peek() != m_separator)
            break;
    }
    row.fields.resize(count);
    return {};
}

bool CsvReader::read(CsvRow& row)
{
    while (peek() != end && atLineEnd())
        takeLineEnd();
    row.line = m_line;
    row.fault.clear();
    if (peek() == end) {
        row.fields.clear();
        return false;
    }
    row.fault = readRow(row);
    if (row.fault.isEmpty()) {
        takeLineEnd();
    } else {
        row.fields.clear();
        skipLine();
    }
    return true;
}

} // namespace lorvan
