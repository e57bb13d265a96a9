#pragma once

#include "support/tool.h"

#include <QDate>

#include <map>
#include <string>

namespace lorvan::test {

struct ToolRun {
    ExitStatus status;
    std::string out;
    std::string errors;
};

/// Runs a command line, its words divided by bars, as on the given day; `password` answers every question for one.
[[nodiscard]] ToolRun runTool(
    QDate today, const QString& commandLine, const QString& password = {}, const QString& programFolder = {});

/// Everything below a folder, hidden entries included: contents by relative name, folders with a slash behind.
[[nodiscard]] std::map<QString, QByteArray> contentOf(const QString& folder);

} // namespace lorvan::test
