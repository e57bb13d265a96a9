#include "controls/focus_rules.h"

#include <QLineEdit>

#include <iterator>

namespace lorvan {

bool isRealFocusChange(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
}

void goBackTo(QWidget& field)
{
    field.setFocus(Qt::OtherFocusReason);
    if (auto* const line = qobject_cast<QLineEdit*>(&field))
        line->selectAll(); // the window may not be active again yet, and then the focus alone does not select
}

void chainTabOrder(const QWidgetList& order)
{
    for (auto each = order.cbegin(); std::next(each) != order.cend(); ++each)
        QWidget::setTabOrder(*each, *std::next(each));
}

void ClickSelection::mouseReleased(QLineEdit& field)
{
    if (m_pending && !field.hasSelectedText())
        field.selectAll();
    m_pending = false;
}

} // namespace lorvan
