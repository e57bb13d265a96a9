#pragma once

#include "audit/book_findings.h"

namespace lorvan {

class Connection;

/// Checks codes and groups, closed days, users and the version: everything but movements and cash days. `book` has the
/// auxiliary database attached. Runs inside the caller's transaction. Throws SqlError.
[[nodiscard]] BookFindings auditRecords(Connection& book);

} // namespace lorvan
