#pragma once

#include "document/report_document.h"

namespace lorvan {

/// All keys of the program with what they do, place by place. `heading` is the book's name.
[[nodiscard]] ReportDocument keySheet(const QString& heading);

} // namespace lorvan
