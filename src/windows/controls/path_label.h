#pragma once

#include "look/themed_label.h"

namespace lorvan {

/// Shows the path of a file. If there is not enough room, the folder is shortened in the middle and the file name is
/// kept whole; the tooltip then shows the full path. A click or the Tab key selects the path, so that all of it can be
/// copied with the usual key or from the context menu. Text and accessible name are the path; the label is disabled if
/// there is none.
class PathLabel : public ThemedLabel {
    Q_OBJECT

public:
    static constexpr int inset = 2; ///< Where the text begins.

    explicit PathLabel(ColourRole role, qreal factor = 1.0, QWidget* parent = nullptr);

    void setPath(const QString& path);
    /// What is painted while there is no path; never part of the text.
    void setEmptyText(const QString& text) { m_emptyText = text; }

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

    QString m_emptyText;
};

} // namespace lorvan
