#pragma once

#include <QAccessible>

namespace lorvan {

/// From now on, assistive technology sees the widgets of this class, which have only an accessible name, with this
/// role; otherwise it would treat a plain widget as filler.
void setAccessibleRole(const QMetaObject& widgetClass, QAccessible::Role role);

} // namespace lorvan
