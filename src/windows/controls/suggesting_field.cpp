#include "controls/suggesting_field.h"

#include "controls/key_binding.h"
#include "look/theme.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>

namespace lorvan {

SuggestingField::SuggestingField(TypingRule rule, QWidget* parent)
    : EntryField(rule, parent)
{
    const auto repaint = [this] { update(); };
    connect(this, &QLineEdit::cursorPositionChanged, this, repaint);
    connect(this, &QLineEdit::selectionChanged, this, repaint);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
        m_typed = typed;
        suggestAgain();
    });
}

void SuggestingField::suggestAgain()
{
    m_rest = m_ask && !m_typed.isEmpty() ? m_ask(m_typed) : QString();
    update();
}

QString SuggestingField::suggestion() const
{
    const bool isTyping = hasFocus() && !isReadOnly() && !m_isComposing && !text().isEmpty() && text() == m_typed;
    return isTyping && !hasSelectedText() && cursorPosition() == text().size() && !hidesText() ? m_rest : QString();
}

/// A step of its own for undo: the toolkit begins one when the cursor has moved.
void SuggestingField::accept()
{
    QInputMethodEvent typing;
    typing.setCommitString(suggestion());
    setCursorPosition(0);
    end(false);
    inputMethodEvent(&typing);
}

void SuggestingField::keyPressEvent(QKeyEvent* event)
{
    if (asksFor(*event, KeyUse::AcceptSuggestion) && !suggestion().isEmpty())
        accept();
    else
        EntryField::keyPressEvent(event);
}

void SuggestingField::inputMethodEvent(QInputMethodEvent* event)
{
    m_isComposing = !event->preeditString().isEmpty();
    EntryField::inputMethodEvent(event);
}

void SuggestingField::focusOutEvent(QFocusEvent* event)
{
    m_typed.clear();
    EntryField::focusOutEvent(event);
}

void SuggestingField::paintEvent(QPaintEvent* event)
{
    EntryField::paintEvent(event);
    const QString rest = suggestion();
    if (rest.isEmpty())
        return;
    const QFontMetrics metrics = fontMetrics();
    QRect place = rectForText();
    place.setLeft(place.left() + metrics.horizontalAdvance(text()) + 1); // the cursor stands between
    QPainter painter(this);
    painter.setPen(Theme::instance().colour(ColourRole::Muted));
    const int top = place.top() + (place.height() - metrics.height() + 1) / 2; // as the toolkit places the text
    painter.drawText(place.left(), top + metrics.ascent(), metrics.elidedText(rest, Qt::ElideRight, place.width()));
}

} // namespace lorvan
