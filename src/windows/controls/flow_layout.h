#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace lorvan {

/// Places its widgets beside each other, and below in another row what does not fit. Hidden ones take no room.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    /// The gaps are in pixels.
    FlowLayout(int across, int down);

    void addItem(QLayoutItem* item) override { m_items.emplace_back(item); }
    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return place({0, 0, width, 0}, false); }
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    /// Returns the height that is needed; only if asked to, the widgets are moved.
    int place(const QRect& area, bool moves) const;

    const int m_across;
    const int m_down;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace lorvan
