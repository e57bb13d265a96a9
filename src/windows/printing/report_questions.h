#pragma once

#include "reports/report_building.h"

class QWidget;

namespace lorvan {

/// Asks what a report wants to know before it is built, if anything, and puts the answers into its inputs. However a
/// question is left, the report goes on. False, after a box, where the report has nothing to choose from. Throws
/// SqlError, SettingsError.
[[nodiscard]] bool askQuestions(ReportRequest& request, const BookFiles& files, KeyRing& keys, QWidget* parent);

} // namespace lorvan
