#pragma once

#include <QAccessible>

namespace lorvan {

/// From now on assistive tools are told of the widgets of this class, which speak by their accessible name alone, as of
/// this role; without it a plain widget is a filler to them.
void setAccessibleRole(const QMetaObject& widgetClass, QAccessible::Role role);

} // namespace lorvan
