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
    /// Whether a click on the line is of any use: then its text is underlined. The Tab key does not reach it; what it
    /// leads to is in the tools menu too.
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
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void underline();

    QWidget* m_button = nullptr;
    bool m_leadsOn = false;
};

} // namespace lorvan
