#include "printing/code_box_field.h"

#include "lists/row_delegate.h"
#include "look/focus_rules.h"

#include <QHelpEvent>
#include <QKeyEvent>

namespace lorvan {
namespace {

constexpr int besideText = 20; ///< What the field's frame and padding take.

} // namespace

CodeBoxField::CodeBoxField(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
}

void CodeBoxField::setBox(const CodeBox& box)
{
    m_box = box;
    setText(box.text);
    home(false);
}

bool CodeBoxField::event(QEvent* event)
{
    const bool fits = fontMetrics().horizontalAdvance(text()) <= width() - besideText;
    if (event->type() != QEvent::ToolTip || fits)
        return QLineEdit::event(event);
    const QString hint = toolTip().isEmpty() ? QString() : u'\n' + toolTip();
    showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(), text() + hint, this, rect());
    return true;
}

void CodeBoxField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    deselect(); // nothing can be typed over it
}

void CodeBoxField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        setBox({});
    else if (isEnter(*event))
        focusNextPrevChild(true);
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace lorvan
