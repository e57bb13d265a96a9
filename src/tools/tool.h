#pragma once

#include "tools/command.h"

#include <QStringList>

namespace lorvan {

enum class ExitStatus {
    Done = 0,
    Failed = 2, ///< Refused or failed; nothing was changed.
};

/// Runs the command line (without the program's own name) and says on the context's streams what came of it.
[[nodiscard]] ExitStatus runTool(const QStringList& commandLine, const ToolContext& context);

} // namespace lorvan
