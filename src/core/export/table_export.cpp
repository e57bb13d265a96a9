#include "export/table_export.h"

#include "export/table_csv.h"
#include "export/table_xlsx.h"
#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/files/system_reason.h"
#include "platform/work_watch.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

namespace lorvan {
namespace {

constexpr int rowsBetweenQuestions = 1000;
constexpr qint64 copiedAtOnce = 1 << 20;

bool hasContent(const std::vector<TableCell>& cells)
{
    for (const TableCell& cell : cells) {
        if (cell.kind != TableCell::Kind::Empty)
            return true;
    }
    return false;
}

void addTextLines(TableSink& sink, const QString& text, const TableRowLook& look)
{
    for (const QString& line : text.split(u'\r')) {
        if (!line.trimmed().isEmpty())
            sink.addRow({{TableCell::Kind::Text, line.trimmed(), {}, {}}}, look);
    }
}

void addItem(TableSink& sink, const TableCells& cells, const ReportItem& item)
{
    TableRowLook look{TableRowLook::Kind::Row, item.font().bold, item.textColour()};
    if (item.isChart() || item.isPicture())
        return; // the figures of a chart follow as a table
    if (item.isParagraph()) {
        look.kind = TableRowLook::Kind::Text;
        addTextLines(sink, item.text().toString(), look);
        return;
    }
    if (item.isTitles())
        look.kind = TableRowLook::Kind::Titles;
    if (const std::vector<TableCell> row = cells.read(item); hasContent(row))
        sink.addRow(row, look);
}

/// Returns false if it was cancelled.
bool writeTable(const ReportDocument& document, TableSink& sink, const ExportProgress& progress)
{
    const TableCells cells(document);
    addTextLines(sink, QString(document.header()).replace(u'|', u' '), {TableRowLook::Kind::Heading, true, 0});
    for (int index = 0; index < document.itemCount(); ++index) {
        addItem(sink, cells, document.item(index));
        if (index % rowsBetweenQuestions == 0 && progress && !progress(index, document.itemCount()))
            return false;
    }
    sink.finish();
    return true;
}

void copy(const QString& path, QIODevice& target)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        throw TableExportError(systemReason(source.errorString()));
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(copiedAtOnce);
        if (bytes.isEmpty())
            throw TableExportError(systemReason(source.errorString()));
        if (target.write(bytes) != bytes.size())
            throw TableExportError(systemReason(target.errorString()));
    }
}

/// The library opens files by name and overwrites what is there without a word, so it gets a temporary folder.
bool writeXlsx(const ReportDocument& document, QIODevice& target, const ExportProgress& progress)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw TableExportError(systemReason(folder.errorString()));
    const QString path = folder.filePath(QStringLiteral("table.xlsx"));
    XlsxSink sink(path, document);
    if (!writeTable(document, sink, progress))
        return false;
    copy(path, target);
    return true;
}

bool writeCsv(const ReportDocument& document, QIODevice& target, const ExportProgress& progress)
{
    CsvSink sink(target);
    return writeTable(document, sink, progress);
}

} // namespace

TableExportError::TableExportError(const QString& reason)
    : std::runtime_error(reason.toStdString())
{
}

bool saveTable(const ReportDocument& document, const QString& path, TableFormat format, const ExportProgress& progress)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto write = format == TableFormat::Csv ? writeCsv : writeXlsx;
    if (!write(document, buffer, progress))
        return false;
    decideOrGiveUp();
    try {
        replaceFile(path, buffer.data(), FileAccess::Umask);
    } catch (const FileError& error) {
        throw TableExportError(error.reason());
    }
    return true;
}

} // namespace lorvan
