#include "printing/title_editor.h"

#include "look/focus_rules.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <utility>

namespace lorvan {

TitleEditor::TitleEditor(QWidget* parent)
    : QLineEdit(parent)
{
}

void TitleEditor::open(const QString& title)
{
    m_isOpen = true;
    setText(title);
    selectAll();
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
}

void TitleEditor::finish()
{
    if (!std::exchange(m_isOpen, false))
        return;
    Q_EMIT finished(text());
    hide();
}

bool TitleEditor::focusNextPrevChild(bool next)
{
    if (!m_isOpen)
        return QLineEdit::focusNextPrevChild(next);
    finish();
    return true;
}

void TitleEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (isRealFocusChange(event->reason()))
        finish();
}

void TitleEditor::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event) || event->key() == Qt::Key_Escape)
        finish();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace lorvan
