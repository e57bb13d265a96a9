#include "look/focus_rules.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <iterator>

namespace lorvan {
QLineEdit* lineOf(QWidget& field)
{
    auto* const chooser = qobject_cast<QComboBox*>(&field);
    return chooser ? chooser->lineEdit() : qobject_cast<QLineEdit*>(&field);
}

bool isRealFocusChange(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
}

void goBackTo(QWidget& field)
{
    field.setFocus(Qt::OtherFocusReason);
    if (QLineEdit* const line = lineOf(field))
        line->selectAll(); // the window may not be active again yet; then the focus alone does not select
}

QString textOf(QWidget& field)
{
    const QLineEdit* const line = lineOf(field);
    return line ? line->text() : QString();
}

bool isEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isAltTyping(const QKeyEvent& event)
{
    const QString text = event.text();
    return event.modifiers() & (Qt::AltModifier | Qt::MetaModifier) && !text.isEmpty()
        && (text.front().isPrint() || text.front().isSurrogate());
}

bool leavesUndo(const QKeyEvent& event, const QLineEdit& field)
{
    return (event.matches(QKeySequence::Undo) && !field.isUndoAvailable())
        || (event.matches(QKeySequence::Redo) && !field.isRedoAvailable());
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
