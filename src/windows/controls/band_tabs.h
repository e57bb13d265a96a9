#pragma once

#include <QTabBar>

namespace lorvan {

/// The tabs of the band. A tab's data is the name of its icon. A tab is wide enough for its caption in the weight of
/// the selected tab, so that nothing moves when another tab is selected.
class BandTabs : public QTabBar {
    Q_OBJECT

public:
    explicit BandTabs(QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText(int index) const;
    void paintTab(QPainter& painter, int index) const;
};

} // namespace lorvan
