#pragma once

#include "codes/code_maintenance.h"

class QWidget;

namespace lorvan {

/// Tells the user why a change of codes was refused.
void explainCodeRefusal(QWidget* parent, CodeRefusal refusal);

/// Asks whether a code is to be modified, and says in small print what else that does where it may surprise.
[[nodiscard]] bool askModification(QWidget* parent, const ModificationEffects& effects);

} // namespace lorvan
