#pragma once

#include "platform/clock.h"
#include "support/arguments.h"

#include <functional>
#include <ostream>

namespace lorvan {

/// How a command ended; the numbers are the process's exit status.
enum class ExitStatus {
    Done = 0,
    Found = 1, ///< Done, and what was examined is not in order, or the disk did not confirm it.
    Failed = 2, ///< Refused or failed; nothing was changed.
};

/// What a command works with besides its arguments.
struct ToolContext {
    std::ostream& out;
    std::ostream& errors;
    /// Asks for the new password of the named user; the empty text when none was given.
    std::function<QString(const QString& user)> askPassword;
    Clock clock;
    QString programFolder; ///< Where the program and its path file are.
    int progressColumns = 0; ///< The width of the terminal that `errors` goes to; 0 when it goes to none.
};

/// One command of lorvan-data. Each stands in a file of its own and in the table of tool.cpp.
struct Command {
    QString name;
    QString arguments; ///< As the usage line shows them.
    QString summary; ///< One line.
    QString help; ///< Further lines for `--help`.
    /// Does it or throws: UsageError, Refused, or a failure of files and databases. Nothing is changed then.
    ExitStatus (*run)(Arguments& arguments, const ToolContext& context);
};

[[nodiscard]] Command backupCommand();
[[nodiscard]] Command checkCommand();
[[nodiscard]] Command createCommand();
[[nodiscard]] Command demoCommand();
[[nodiscard]] Command exportCommand();
[[nodiscard]] Command importCommand();
[[nodiscard]] Command importCsvCommand();
[[nodiscard]] Command pathCommand();
[[nodiscard]] Command restoreCommand();

} // namespace lorvan
