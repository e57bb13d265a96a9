#include "preview/action_button.h"

#include <QAction>
#include <QLabel>

namespace lorvan {

ActionButton::ActionButton(QAction* action, const QString& icon, const QString& caption)
    : CommandButton(icon, caption)
{
    setObjectName(action->objectName());
    setAccessibleName(action->text());
    setAccessibleDescription(action->text()); // the caption becomes the name
    setToolTip(action->toolTip());
    setEnabled(action->isEnabled());
    connect(this, &CommandButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::enabledChanged, this, &ActionButton::setEnabled);
}

void ActionButton::showCaption(bool isShown)
{
    captionLabel()->setVisible(isShown);
    updateGeometry();
}

} // namespace lorvan
