#include "controls/focus_rules.h"

#include <QLineEdit>

namespace lorvan {

bool isRealFocusChange(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
}

void ClickSelection::mouseReleased(QLineEdit& field)
{
    if (m_pending && !field.hasSelectedText())
        field.selectAll();
    m_pending = false;
}

} // namespace lorvan
