#pragma once

#include "reports/report_building.h"

class QWidget;

namespace lorvan {

/// Asks for what a report needs to know before it is built, if anything, and puts the answers into its inputs. However
/// a question is closed, the report continues. Returns false, after a message, if the report has nothing to choose
/// from. Throws SqlError, SettingsError.
[[nodiscard]] bool askQuestions(ReportRequest& request, const BookFiles& files, KeyRing& keys, QWidget* parent);

} // namespace lorvan
