#pragma once

#include "cashbook/cash_book.h"

class QWidget;

namespace lorvan {

/// What the user was doing when the change was refused; the message about a closed day is different for an insertion.
enum class RefusedOperation { Insert, Change };

/// Tells the user why a change of movements was refused.
void explainRefusal(QWidget* parent, MovementRefusal refusal, RefusedOperation operation);

/// The box that keeps a closed day closed.
void explainClosedDay(QWidget* parent);

} // namespace lorvan
