#pragma once

#include "codes/code_maintenance.h"

class QWidget;

namespace lorvan {

/// Tells the user why a change of codes was refused.
void explainCodeRefusal(QWidget* parent, CodeRefusal refusal);

/// Asks whether a code is to be modified and mentions, in small print, side effects that may be unexpected.
[[nodiscard]] bool askModification(QWidget* parent, const ModificationEffects& effects);

} // namespace lorvan
