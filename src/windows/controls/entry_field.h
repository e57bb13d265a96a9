#pragma once

#include "look/focus_rules.h"
#include "platform/entry_rules.h"

#include <QLineEdit>

namespace lorvan {

/// A field of an entry form. Typed characters pass its typing rule, pasted text does not; Enter goes on to the next
/// field; all of its text is selected when it receives the focus. A text that does not fit is shown as a tooltip.
class EntryField : public QLineEdit {
    Q_OBJECT

public:
    explicit EntryField(TypingRule rule, QWidget* parent = nullptr);

    /// For amounts: right-aligned, in figures of one width.
    void setRightAligned();

    /// Draws the eye to a text that might be overlooked; the reason is its tool tip. An empty reason ends that.
    void setMark(const QString& reason);

    /// Font factor and weight where they differ from an ordinary field's.
    void setType(qreal factor, QFont::Weight weight);

    /// That wide, and wider while its text needs it: an amount is never cut.
    void setLeastWidth(int pixels);

    /// The text is painted muted: for what does not count at the moment, though it can be edited.
    void setQuiet(bool isQuiet);
    [[nodiscard]] bool isQuiet() const { return m_isQuiet; }

Q_SIGNALS:
    /// The user went to another field. Emitted while the focus moves: open a message box from a posted call only, or it
    /// swallows the mouse release that follows.
    void left();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool hidesText() const;
    [[nodiscard]] int widthOfText() const;
    [[nodiscard]] int widthForText() const;
    void growWithText();
    void dress();

    TypingRule m_rule;
    ClickSelection m_clickSelection;
    qreal m_factor = 1.0;
    QFont::Weight m_weight = QFont::Normal;
    int m_leastWidth = 0; ///< 0: of any width.
    bool m_figures = false;
    bool m_isQuiet = false;
};

} // namespace lorvan
