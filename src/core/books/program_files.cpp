#include "books/program_files.h"

#include "platform/files/system_reason.h"
#include "platform/work.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <unistd.h>
#include <vector>

namespace lorvan {

QString besideProgram(const QString& ownFile, const QString& name)
{
    return QFileInfo(ownFile).absolutePath() + u'/' + name;
}

bool canRun(const QString& programFile)
{
    const QFileInfo file(programFile);
    return file.isFile() && file.isExecutable();
}

void becomeProgram(const QString& programFile, const QStringList& options)
{
    std::vector<QByteArray> words{QFile::encodeName(programFile)};
    for (const QString& option : options)
        words.push_back(QFile::encodeName(option));
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(words.front().constData(), pointers.data());
    throw Refused(QStringLiteral("Το πρόγραμμα %1 δεν ξεκινά. %2").arg(programFile, systemReason(errno)));
}

} // namespace lorvan
