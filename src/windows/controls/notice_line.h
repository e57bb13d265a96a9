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

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace lorvan
