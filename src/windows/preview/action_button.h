#pragma once

#include "controls/command_button.h"

class QAction;

namespace lorvan {

/// A button that stands for an action: it has the action's name, is enabled with it and triggers it. The action's
/// tooltip is the button's, its text the accessible name.
class ActionButton : public CommandButton {
    Q_OBJECT

public:
    /// Without a caption it shows the icon alone.
    ActionButton(QAction* action, const QString& icon, const QString& caption = {});

    /// Gives the caption back or takes it away.
    void showCaption(bool isShown);
};

} // namespace lorvan
