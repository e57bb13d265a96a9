#pragma once

#include "look/themed_label.h"

namespace lorvan {

/// A line of small print on the ground of a page; its tool tip says why. It keeps its place while it is empty, so that
/// nothing below it moves when it comes and goes, and takes a second line only where the window is too narrow for one.
class NoticeLine : public ThemedLabel {
    Q_OBJECT

public:
    explicit NoticeLine(const QString& objectName, QWidget* parent = nullptr);

    /// Empty texts say nothing.
    void tell(const QString& text, const QString& reason, ColourRole role);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace lorvan
