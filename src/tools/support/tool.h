#pragma once

#include "support/command.h"

#include <QStringList>

namespace lorvan {

/// Runs the command line (without the program's own name) and reports the outcome on the context's streams.
[[nodiscard]] ExitStatus runTool(const QStringList& commandLine, const ToolContext& context);

} // namespace lorvan
