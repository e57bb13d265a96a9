#pragma once

#include <QWidget>

#include <vector>

class QAbstractItemView;
class QFocusFrame;

namespace lorvan {

/// Contains a page and, while that is disabled, allows its lists to be read: the wheel scrolls the list under the
/// pointer; Tab and Shift+Tab move from list to list, the current one being framed, and PgUp, PgDn, Home and End scroll
/// it. Its accessible name is that of the current list. While the page is enabled, it does nothing.
class ListReader : public QWidget {
    Q_OBJECT

public:
    /// Puts the page into its layout.
    explicit ListReader(QWidget* page, QWidget* parent = nullptr);

    /// The lists of the page, in the order in which Tab visits them; at least one.
    void setLists(std::vector<QAbstractItemView*> lists);

    /// Disables the page and makes its lists readable, or the reverse.
    void setReading(bool reading);

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void choose(std::size_t list);
    [[nodiscard]] QAbstractItemView* listAt(QPoint position) const;

    QWidget* m_page;
    QFocusFrame* m_frame;
    std::vector<QAbstractItemView*> m_lists;
    std::size_t m_chosen = 0;
    int m_turned = 0; ///< Wheel movement in eighths of a degree that has not been used for scrolling yet.
};

} // namespace lorvan
