#include "export/table_csv.h"

#include "export/table_export.h"
#include "platform/files/system_reason.h"

#include <QIODevice>

#include <algorithm>

namespace lorvan {
namespace {

constexpr QChar separator = u';';

QString quoted(QString text)
{
    const bool needsQuotes = std::any_of(text.begin(), text.end(),
        [](QChar each) { return each == separator || each == u'"' || each == u'\r' || each == u'\n'; });
    return needsQuotes ? u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"' : text;
}

QString csvText(const TableCell& cell)
{
    switch (cell.kind) {
    case TableCell::Kind::Empty:
        return {};
    case TableCell::Kind::Amount:
        return QString(cell.text).remove(u'.');
    case TableCell::Kind::Whole:
        return cell.text;
    case TableCell::Kind::Date:
    case TableCell::Kind::WeekdayDate:
        return cell.date.toString(QStringLiteral("dd/MM/yyyy"));
    case TableCell::Kind::Text:
        break;
    }
    return quoted(cell.text);
}

} // namespace

CsvSink::CsvSink(QIODevice& device)
    : m_device(device)
{
    write("\xEF\xBB\xBF");
}

void CsvSink::addRow(const std::vector<TableCell>& cells, const TableRowLook&)
{
    QStringList texts;
    for (const TableCell& cell : cells)
        texts += csvText(cell);
    write(texts.join(separator).toUtf8() + "\r\n");
}

void CsvSink::write(const QByteArray& bytes)
{
    if (m_device.write(bytes) != bytes.size())
        throw TableExportError(systemReason(m_device.errorString()));
}

} // namespace lorvan
