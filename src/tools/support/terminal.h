#pragma once

#include <QString>

namespace lorvan {

/// Asks on the terminal, twice and without echo, for the new password of the named user. If standard input is not a
/// terminal, one line is read from it instead. Returned without line end; empty at the end of input. Throws Refused if
/// the two answers differ, or if the line is not UTF-8.
[[nodiscard]] QString askNewPassword(const QString& user);

/// The width of the terminal of the error stream; 0 if it is not a terminal.
[[nodiscard]] int errorTerminalColumns();

} // namespace lorvan
