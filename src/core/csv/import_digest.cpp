#include "csv/import_digest.h"

namespace lorvan {
namespace {

/// On one line, whatever the text contains.
QByteArray escaped(QByteArray value)
{
    return value.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
}

} // namespace

void ImportDigest::add(const QString& file, const CsvTable& row, const std::vector<CsvColumn>& columns)
{
    QByteArray lines = "row=" + file.toUtf8() + '\n';
    for (const CsvColumn& column : columns) {
        const auto field = column.need == CsvColumn::Need::Ignored ? std::nullopt : row.field(column.name);
        if (field)
            lines += column.name + '=' + escaped(*field) + '\n';
    }
    m_hash.addData(lines);
}

QString ImportDigest::text() const
{
    return QString::fromLatin1(m_hash.result().toHex());
}

} // namespace lorvan
