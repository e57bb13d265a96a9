#pragma once

#include "look/focus_rules.h"
#include "platform/entry_rules.h"

#include <QLineEdit>

namespace lorvan {

/// A field of an entry form. Its typing rule applies to typed characters, not to pasted text; Enter moves to the next
/// field; all of its text is selected when it receives the focus. A text that does not fit is shown as a tooltip.
class EntryField : public QLineEdit {
    Q_OBJECT

public:
    explicit EntryField(TypingRule rule, QWidget* parent = nullptr);

    /// For amounts: right-aligned, with digits of equal width.
    void setRightAligned();

    /// Marks a text that might be overlooked; the reason is shown as its tool tip. An empty reason removes the mark.
    void setMark(const QString& reason);

    /// Font factor and weight, if they differ from those of an ordinary field.
    void setType(qreal factor, QFont::Weight weight);

    /// The width, which grows if the text needs more: an amount is never cut.
    void setLeastWidth(int pixels);

    /// Shows the text muted: for a value that does not count at the moment but can still be edited.
    void setQuiet(bool isQuiet);
    [[nodiscard]] bool isQuiet() const { return m_isQuiet; }

    [[nodiscard]] bool hidesText() const; ///< Whether a part of the text does not fit.

Q_SIGNALS:
    /// The user went to another field. Emitted while the focus is moving: only open a message box from a posted call,
    /// or it would swallow the mouse release that follows.
    void left();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    [[nodiscard]] QRect rectForText() const; ///< In which the text is shown.

private:
    [[nodiscard]] int widthOfText() const;
    [[nodiscard]] int widthForText() const { return rectForText().width(); }
    void growWithText();
    void dress();

    TypingRule m_rule;
    ClickSelection m_clickSelection;
    qreal m_factor = 1.0;
    QFont::Weight m_weight = QFont::Normal;
    int m_leastWidth = 0; ///< 0: any width.
    bool m_figures = false;
    bool m_isQuiet = false;
};

} // namespace lorvan
