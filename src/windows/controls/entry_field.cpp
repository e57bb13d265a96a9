#include "controls/entry_field.h"

#include "lists/row_delegate.h"
#include "look/style_painting.h"
#include "look/theme.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace lorvan {
namespace {

bool isTyping(const QKeyEvent& event)
{
    const QString text = event.text();
    return !text.isEmpty() && !(event.modifiers() & Qt::ControlModifier)
        && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

} // namespace

EntryField::EntryField(TypingRule rule, QWidget* parent)
    : QLineEdit(parent)
    , m_rule(rule)
{
    connect(&Theme::instance(), &Theme::changed, this, &EntryField::dress);
}

void EntryField::setRightAligned()
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_figures = true;
    dress();
}

void EntryField::setMark(const QString& reason)
{
    setProperty(markProperty, !reason.isEmpty());
    setToolTip(reason);
    setAccessibleDescription(reason);
    update();
}

void EntryField::setType(qreal factor, QFont::Weight weight)
{
    m_factor = factor;
    m_weight = weight;
    dress();
}

void EntryField::setQuiet(bool isQuiet)
{
    m_isQuiet = isQuiet;
    setPalette({});
    dress();
}

void EntryField::dress()
{
    const Theme& theme = Theme::instance();
    if (m_isQuiet) {
        QPalette colours;
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            colours.setColor(group, QPalette::Text, theme.colour(ColourRole::Muted));
        setPalette(colours);
    }
    if (m_figures)
        setFont(theme.figureFont(m_factor, m_weight));
    else if (!qFuzzyCompare(m_factor, 1.0) || m_weight != QFont::Normal)
        setFont(theme.font(m_factor, m_weight));
    growWithText();
}

bool EntryField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && leavesUndo(*static_cast<QKeyEvent*>(event), *this)) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::ToolTip || !hidesText())
        return QLineEdit::event(event);
    showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(), text(), this, rect());
    return true;
}

bool EntryField::hidesText() const
{
    return echoMode() == Normal && widthOfText() > widthForText();
}

int EntryField::widthOfText() const
{
    return fontMetrics().horizontalAdvance(text());
}

QRect EntryField::rectForText() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QMargins inside = textMargins() + QMargins(2, 0, 2, 0);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).marginsRemoved(inside);
}

void EntryField::setLeastWidth(int pixels)
{
    m_leastWidth = pixels;
    connect(this, &QLineEdit::textChanged, this, &EntryField::growWithText);
    growWithText();
}

void EntryField::growWithText()
{
    if (m_leastWidth > 0)
        setFixedWidth(std::clamp(width() - widthForText() + widthOfText() + 1, m_leastWidth, 3 * m_leastWidth));
}

void EntryField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (isRealFocusChange(event->reason()))
        selectAll();
    m_clickSelection.focusGained(event->reason());
}

void EntryField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!isRealFocusChange(event->reason()))
        return;
    if (hidesText())
        home(false);
    Q_EMIT left();
}

void EntryField::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    m_clickSelection.mouseReleased(*this);
}

void EntryField::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event)) {
        event->accept();
        focusNextPrevChild(true);
        return;
    }
    const bool isCopy = event->key() == Qt::Key_D && event->modifiers() == Qt::ControlModifier;
    if (isAltTyping(*event) || isCopy) { // on X11 the toolkit deletes with Ctrl+D, which copies a movement in the lists
        event->ignore();
        return;
    }
    if (!isTyping(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const QString text = typedText(m_rule, event->text());
    if (!text.isEmpty()) {
        QKeyEvent mapped(event->type(), event->key(), event->modifiers(), text, event->isAutoRepeat());
        QLineEdit::keyPressEvent(&mapped);
    }
    event->accept();
}

void EntryField::inputMethodEvent(QInputMethodEvent* event)
{
    QInputMethodEvent mapped(event->preeditString(), event->attributes());
    mapped.setCommitString(
        typedText(m_rule, event->commitString()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&mapped);
    event->accept();
}

} // namespace lorvan
