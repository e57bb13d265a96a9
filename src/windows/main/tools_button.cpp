#include "main/tools_button.h"

#include <QMenu>

namespace lorvan {

ToolsButton::ToolsButton(QWidget* parent)
    : CommandButton(QStringLiteral("tools"), QStringLiteral("Εργαλεία"), parent)
    , m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("tools"));
    setToolTip(QStringLiteral("Έλεγχος, ιστορικό, ανοικτές ημέρες (F10)"));
    setSmall(true);
    setFrameless(true);
    setFocusPolicy(Qt::NoFocus); // the Tab key goes through the pages as ever
    setShortcut(QKeySequence(Qt::Key_F10));
    connect(this, &CommandButton::clicked, this, &ToolsButton::offer);
}

QAction* ToolsButton::add(const QString& objectName, const QString& text)
{
    QAction* const entry = m_menu->addAction(text);
    entry->setObjectName(objectName);
    return entry;
}

void ToolsButton::beginGroup()
{
    m_menu->addSeparator();
}

void ToolsButton::offer()
{
    m_menu->setActiveAction(m_menu->actions().constFirst());
    m_menu->popup(mapToGlobal(QPoint(0, height())));
}

} // namespace lorvan
