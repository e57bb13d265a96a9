#pragma once

#include "tools/tool.h"

#include <QDate>

#include <map>
#include <string>

namespace lorvan::test {

struct ToolRun {
    ExitStatus status;
    std::string out;
    std::string errors;
};

/// Runs a command line as on the given day, `password` being the answer to every question for one.
[[nodiscard]] ToolRun runToolOn(
    QDate today, const QStringList& commandLine, const QString& password = {}, const QString& programFolder = {});

/// Everything below a folder, hidden entries included: contents by relative name, folders with a slash behind.
using FolderContent = std::map<QString, QByteArray>;
[[nodiscard]] FolderContent contentOf(const QString& folder);

} // namespace lorvan::test
