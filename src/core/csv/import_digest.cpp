#include "csv/import_digest.h"

#include <algorithm>

namespace lorvan {
namespace {

/// On one line, whatever the text contains.
void addEscaped(QByteArray& lines, const QByteArray& value)
{
    const auto isSpecial = [](char c) { return c == '\\' || c == '\n' || c == '\r'; };
    if (std::none_of(value.begin(), value.end(), isSpecial)) {
        lines += value;
        return;
    }
    lines += QByteArray(value).replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
}

} // namespace

void ImportDigest::add(const QString& file, const CsvTable& row, const std::vector<CsvColumn>& columns)
{
    m_lines.resize(0);
    m_lines += "row=";
    m_lines += file.toUtf8();
    m_lines += '\n';
    for (const CsvColumn& column : columns) {
        const auto field = column.need == CsvColumn::Need::Ignored ? std::nullopt : row.field(column.name);
        if (!field)
            continue;
        m_lines += column.name;
        m_lines += '=';
        addEscaped(m_lines, *field);
        m_lines += '\n';
    }
    m_hash.addData(m_lines);
}

QString ImportDigest::text() const
{
    return QString::fromLatin1(m_hash.result().toHex());
}

} // namespace lorvan
