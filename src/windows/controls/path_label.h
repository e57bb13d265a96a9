#pragma once

#include "look/themed_label.h"

namespace lorvan {

/// Shows the path of a file. Where there is no room for all of it, the folder is cut in its middle and the file name
/// stays whole; the tooltip then has all of it. A click or the Tab key selects the path, to be copied whole with the
/// usual key or from the context menu. Text and accessible name are the path; it is disabled without one.
class PathLabel : public ThemedLabel {
    Q_OBJECT

public:
    static constexpr int inset = 2; ///< Where the text begins.

    explicit PathLabel(ColourRole role, qreal factor = 1.0, QWidget* parent = nullptr);

    void setPath(const QString& path);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;
    void copy() const;
};

} // namespace lorvan
