#pragma once

#include "platform/clock.h"
#include "support/arguments.h"

#include <functional>
#include <ostream>

namespace lorvan {

/// How a command ended; the numbers are the process's exit status.
enum class ExitStatus {
    Done = 0,
    Found = 1, ///< Done, but what was examined is not in order, or the disk did not confirm it.
    Failed = 2, ///< Refused or failed; nothing was changed.
};

/// What a command works with in addition to its arguments.
struct ToolContext {
    std::ostream& out;
    std::ostream& errors;
    /// Asks for the new password of the named user; returns an empty text if none was given.
    std::function<QString(const QString& user)> askPassword;
    Clock clock;
    QString programFolder; ///< Where the program and its path file are.
    int progressColumns = 0; ///< The width of the terminal that `errors` is connected to; 0 if it is not a terminal.
};

/// One command of lorvan-data. Each is in a file of its own and in the table of tool.cpp.
struct Command {
    QString name;
    QString arguments; ///< As shown in the usage line.
    QString summary; ///< One line.
    QString help; ///< Further lines for `--help`.
    /// Runs the command or throws: UsageError, Refused, or an error of files and databases. Nothing is changed then.
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
