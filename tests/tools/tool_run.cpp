#include "tools/tool_run.h"

#include <QDirIterator>
#include <QFile>

#include <sstream>

namespace lorvan::test {

ToolRun runTool(QDate today, const QString& commandLine, const QString& password, const QString& programFolder)
{
    std::ostringstream out;
    std::ostringstream errors;
    const ToolContext context{
        out, errors, [password](const QString&) { return password; }, Clock(QDateTime(today, {12, 0})), programFolder};
    const ExitStatus status = lorvan::runTool(commandLine.split(u'|'), context);
    return {status, out.str(), errors.str()};
}

std::map<QString, QByteArray> contentOf(const QString& folder)
{
    std::map<QString, QByteArray> content;
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const QString name = QDir(folder).relativeFilePath(file.fileName());
        if (file.open(QIODevice::ReadOnly))
            content[name] = file.readAll();
        else
            content[name + u'/'] = {};
    }
    return content;
}

} // namespace lorvan::test
