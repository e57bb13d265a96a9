#pragma once

#include "preview/page_view.h"

namespace lorvan {

class ThemedLabel;

/// The area below menu and tool row: the page view and, on the same background below it, a status line.
class PreviewArea : public QWidget {
    Q_OBJECT

public:
    explicit PreviewArea(QWidget* parent);

    [[nodiscard]] PageView& view() const { return *m_view; }

    /// The text stays until the next one.
    void say(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    PageView* m_view;
    ThemedLabel* m_line;
};

} // namespace lorvan
