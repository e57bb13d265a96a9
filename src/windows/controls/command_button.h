#pragma once

#include "look/theme.h"

#include <QPushButton>

class QAction;
class QLabel;

namespace lorvan {

/// A push button with one of our icons and a caption label lying inside it. Without a caption, or with the caption
/// hidden, it is a square-ish button of the icon alone; give it an accessible name then. Return and keypad Enter press
/// it while it has the focus; it is never a dialog's automatic default. A double click presses it once.
class CommandButton : public QPushButton {
    Q_OBJECT

public:
    enum class Look {
        Outlined,
        Solid, ///< The step most likely taken next; one in a window.
        Quiet, ///< Exits.
        Danger, ///< Outlined, its caption in the colour of expenses.
    };

    /// `iconName` as for themedIcon(); empty for none.
    CommandButton(const QString& iconName, const QString& caption, QWidget* parent = nullptr);

    void setLook(Look look);
    [[nodiscard]] Look look() const { return m_look; }

    void setSmall(bool isSmall); ///< 26 px instead of 32.

    /// Without a frame of its own until the mouse or the focus is on it, as in a tool row. Each click of a quick series
    /// presses it.
    void setFrameless(bool isFrameless);

    /// Sets caption and accessible name. Setting the label's text does the same.
    void setCaption(const QString& caption);

    /// The label lying inside; its text is the button's text and accessible name. It lets the mouse through.
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

/// A button that stands for an action: it has the action's name, is enabled with it and triggers it. The action's
/// tooltip is the button's, its text the accessible name.
class ActionButton : public CommandButton {
    Q_OBJECT

public:
    /// Without a caption it shows the icon alone.
    ActionButton(QAction* action, const QString& icon, const QString& caption = {});

    /// Gives the caption back or takes it away.
    void showCaption(bool isShown);
};

} // namespace lorvan
