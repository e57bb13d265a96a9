#pragma once

#include <QString>

namespace lorvan {

/// Asks on the terminal, twice and without echo, for the new password of the named user. When standard input is no
/// terminal, one line is read from it instead. Without its line end; empty at the end of input.
/// Throws Refused when the two answers differ, or when the line is no UTF-8 text.
[[nodiscard]] QString askNewPassword(const QString& user);

/// The width of the terminal that the error stream goes to; 0 when it is no terminal.
[[nodiscard]] int errorTerminalColumns();

} // namespace lorvan
