#include "look/accessible_role.h"

#include <QAccessibleWidget>
#include <QMap>
#include <QWidget>

namespace lorvan {
namespace {

QMap<QString, QAccessible::Role>& roles()
{
    static QMap<QString, QAccessible::Role> known;
    return known;
}

QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    const auto role = roles().constFind(className);
    auto* const widget = qobject_cast<QWidget*>(object);
    return widget && role != roles().constEnd() ? new QAccessibleWidget(widget, *role) : nullptr;
}

} // namespace

void setAccessibleRole(const QMetaObject& widgetClass, QAccessible::Role role)
{
    if (roles().isEmpty())
        QAccessible::installFactory(&interfaceOf);
    roles().insert(QLatin1String(widgetClass.className()), role);
}

} // namespace lorvan
