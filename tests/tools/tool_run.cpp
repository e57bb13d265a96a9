#include "tools/tool_run.h"

#include <QDirIterator>

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
        const QFileInfo entry(entries.next());
        const QString name = QDir(folder).relativeFilePath(entry.filePath());
        content[entry.isDir() ? name + u'/' : name] = readFile(entry.filePath());
    }
    return content;
}

QString CommandTest::words(const char* line) const
{
    return QString::fromUtf8(line).replace(u'@', book.folder()).replace(u'#', beside.path());
}

std::map<QString, QByteArray> CommandTest::contents() const
{
    auto all = contentOf(beside.path());
    all.merge(contentOf(book.folder()));
    all["lorvan.dat"].truncate(1);
    return all;
}

void CommandTest::expectRefusal(const char* line, const char* reason) const
{
    const auto before = contents();
    const ToolRun refused = run(line);
    EXPECT_EQ(refused.status, ExitStatus::Failed) << line;
    expectParts(refused.errors, {reason});
    EXPECT_TRUE(contents() == before) << line;
}

void expectParts(const std::string& text, const std::vector<const char*>& parts)
{
    for (const char* const part : parts)
        EXPECT_NE(text.find(part), std::string::npos) << '"' << part << "\" is missing in:\n" << text;
}

} // namespace lorvan::test
