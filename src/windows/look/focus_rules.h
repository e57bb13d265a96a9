#pragma once

#include <QWidget>

class QKeyEvent;
class QLineEdit;

namespace lorvan {

/// Whether a focus change means that the user went to another field. Menus, pop-ups, message boxes and switching
/// between windows take the focus but give it back.
[[nodiscard]] bool isRealFocusChange(Qt::FocusReason reason);

/// Returns the user to a field or chooser whose text was refused, with all of the text selected so that typing replaces
/// it.
void goBackTo(QWidget& field);

/// The line edit of a field or chooser; null if it has none.
[[nodiscard]] QLineEdit* lineOf(QWidget& field);

/// The content of a field or chooser.
[[nodiscard]] QString textOf(QWidget& field);

/// Whether a key is Enter, of the keypad or not.
[[nodiscard]] bool isEnter(const QKeyEvent& event);

/// Whether a key types a character while Alt or the logo key is held down. Fields ignore such a key: it is a shortcut
/// or nothing. AltGr, the third level of a keyboard, does not count as such a modifier.
[[nodiscard]] bool isAltTyping(const QKeyEvent& event);

/// Whether a field passes the key for undo or redo on because it has no typing of its own to undo or redo.
[[nodiscard]] bool leavesUndo(const QKeyEvent& event, const QLineEdit& field);

/// Makes the Tab key move from each of the widgets to the next.
void chainTabOrder(const QWidgetList& order);

/// Selects a field's whole text when it receives the focus by a click, unless the user selected a part of it with that
/// click.
class ClickSelection {
public:
    void focusGained(Qt::FocusReason reason) { m_pending = reason == Qt::MouseFocusReason; }
    void mouseReleased(QLineEdit& field);

private:
    bool m_pending = false;
};

} // namespace lorvan
