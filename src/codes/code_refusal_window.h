#pragma once

#include "codes/code_maintenance.h"

class QWidget;

namespace lorvan {

/// Tells the user why a change of codes was refused.
void explainCodeRefusal(QWidget* parent, CodeRefusal refusal);

} // namespace lorvan
