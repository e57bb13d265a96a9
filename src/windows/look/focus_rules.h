#pragma once

#include <QWidget>

class QKeyEvent;
class QLineEdit;

namespace lorvan {

/// Whether a focus change means that the user went to another field. Menus, pop-ups, message boxes and a switch of
/// windows take the focus and give it back.
[[nodiscard]] bool isRealFocusChange(Qt::FocusReason reason);

/// Takes the user back to a field or chooser whose text was refused, with all of it selected, so that typing replaces
/// it.
void goBackTo(QWidget& field);

/// What stands in a field or chooser.
[[nodiscard]] QString textOf(QWidget& field);

/// Whether a key types a character with Alt or the logo key held down, which is a command of nobody's: fields drop it.
/// The third level of a keyboard (AltGr) is no such modifier.
[[nodiscard]] bool isAltTyping(const QKeyEvent& event);

/// Whether a field passes the key for undoing on: it has no typing of its own to take back.
[[nodiscard]] bool leavesUndo(const QKeyEvent& event, const QLineEdit& field);

/// The Tab key goes from each of the widgets to the next.
void chainTabOrder(const QWidgetList& order);

/// Selects a field's whole text when it receives the focus by a click, unless the click has drawn a selection of its
/// own.
class ClickSelection {
public:
    void focusGained(Qt::FocusReason reason) { m_pending = reason == Qt::MouseFocusReason; }
    void mouseReleased(QLineEdit& field);

private:
    bool m_pending = false;
};

} // namespace lorvan
