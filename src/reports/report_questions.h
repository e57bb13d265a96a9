#pragma once

#include "reports/report_building.h"

class QWidget;

namespace lorvan {

/// Asks what a report wants to know before it is built, if anything, and puts the answers into its inputs. However a
/// question is left, the report goes on.
void askQuestions(ReportRequest& request, QWidget* parent);

} // namespace lorvan
