#pragma once

#include "look/themed_label.h"

namespace lorvan {

/// A line of small print on a page's background; its tool tip gives the reason. It takes up its space even when empty,
/// so that nothing below it moves when its text comes and goes, and a second line only if the window is too narrow for
/// one.
class NoticeLine : public ThemedLabel {
    Q_OBJECT

public:
    explicit NoticeLine(const QString& objectName, QWidget* parent = nullptr);

    /// Empty texts clear the line.
    void tell(const QString& text, const QString& reason, ColourRole role);
    /// Whether a click on the line, or Enter or the space bar in it, is of any use: then the Tab key reaches it, and
    /// its text is underlined.
    void setLeadsOn(bool leadsOn);
    /// Takes over a button that can be shown before the text.
    void setButton(QWidget* button);
    void showButton(bool isShown);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void clicked(); ///< Only if the line leads on.

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void underline();

    QWidget* m_button = nullptr;
    bool m_leadsOn = false;
};

} // namespace lorvan
