#pragma once

#include "controls/command_button.h"

class QMenu;

namespace lorvan {

/// The menu button `tools` in the tab band; F10 opens it.
class ToolsButton : public CommandButton {
    Q_OBJECT

public:
    explicit ToolsButton(QWidget* parent);

    /// Adds an entry at the end; the window that holds the button connects it.
    QAction* add(const QString& objectName, const QString& text);
    /// What is added from now on stands below a line.
    void beginGroup();

private:
    void offer();

    QMenu* m_menu;
};

} // namespace lorvan
