#pragma once

#include "support/command.h"

#include <QStringList>

namespace lorvan {

/// Runs the command line (without the program's own name) and says on the context's streams what came of it.
[[nodiscard]] ExitStatus runTool(const QStringList& commandLine, const ToolContext& context);

} // namespace lorvan
