#pragma once

#include "look/theme.h"

#include <QPushButton>

class QAction;
class QLabel;

namespace lorvan {

/// A push button with one of our icons and a caption label inside it. Without a caption, or with the caption hidden, it
/// is a nearly square button with only the icon; give it an accessible name then. Return and keypad Enter press it
/// while it has the focus; it is never a dialog's automatic default button. A double click presses it once.
class CommandButton : public QPushButton {
    Q_OBJECT

public:
    enum class Look {
        Outlined,
        Solid, ///< The most likely next step; at most one in a window.
        Quiet, ///< For leaving a window.
        Danger, ///< Outlined, with its caption in the colour of expenses.
    };

    /// `iconName` as for themedIcon(); empty for no icon.
    CommandButton(const QString& iconName, const QString& caption, QWidget* parent = nullptr);

    void setLook(Look look);
    [[nodiscard]] Look look() const { return m_look; }

    void setSmall(bool isSmall); ///< 26 px instead of 32.

    /// Shows no frame until the mouse or the focus is on it, as in a tool bar. Every click of a rapid series presses
    /// it.
    void setFrameless(bool isFrameless);

    /// Sets the caption and the accessible name. Setting the label's text has the same effect.
    void setCaption(const QString& caption);

    /// The label inside the button; its text is the button's text and accessible name. Mouse events pass through it.
    [[nodiscard]] QLabel* captionLabel() const { return m_caption; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool showsCaption() const;
    [[nodiscard]] int contentWidth() const;
    [[nodiscard]] bool isSolid() const { return m_look == Look::Solid && isEnabled(); }
    [[nodiscard]] bool isBare() const { return (m_look == Look::Quiet || m_frameless) && !isSolid(); }
    [[nodiscard]] QColor textColour() const;
    [[nodiscard]] QColor groundColour() const;
    [[nodiscard]] QColor borderColour() const;
    void paintFocus(QPainter& painter) const;
    void dressCaption();
    void placeCaption();
    void followCaption();

    QString m_iconName;
    QLabel* m_caption;
    Look m_look = Look::Outlined;
    bool m_small = false;
    bool m_frameless = false;
};

/// A button with an object name and a tooltip. One that is an icon alone has the tooltip as its accessible name.
[[nodiscard]] CommandButton* newCommand(
    const char* name, const QString& icon, const QString& caption, const QString& tip);

/// A button for an action: it takes the action's name, is enabled and checked together with it and triggers it. The
/// button's tooltip is the action's, its accessible name the action's text.
class ActionButton : public CommandButton {
    Q_OBJECT

public:
    /// Without a caption it shows only the icon.
    ActionButton(QAction* action, const QString& icon, const QString& caption = {});

    /// Shows or hides the caption.
    void showCaption(bool isShown);
};

} // namespace lorvan
