#pragma once

#include "support/files.h"
#include "support/temporary_book.h"
#include "support/tool.h"

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

/// A book and a folder beside it. In a command line "@" stands for the one and "#" for the other.
class CommandTest : public testing::Test {
protected:
    [[nodiscard]] QString words(const char* line) const;
    [[nodiscard]] ToolRun run(const char* line) const { return runTool(today, words(line)); }

    /// Everything in both folders; of the usage marker, which bears a name once it was claimed, only its state.
    [[nodiscard]] std::map<QString, QByteArray> contents() const;

    /// Says why, and changes nothing in either folder.
    void expectRefusal(const char* line, const char* reason) const;

    const QDate today = QDate(2024, 3, 20);
    const TemporaryBook book;
    const QTemporaryDir beside;
};

/// Expects all of the parts in the text.
void expectParts(const std::string& text, const std::vector<const char*>& parts);

} // namespace lorvan::test
