#pragma once

#include <QListView>

namespace lorvan {

/// A list whose rows stand for records: a click shows one, a double click takes it up for a change. In a list of single
/// selection the space bar clicks the current row and F2 opens it.
class RecordList : public QListView {
    Q_OBJECT

public:
    /// Whether going to another row by the keyboard is a click on it.
    enum class Moves { Click, Select };

    explicit RecordList(Moves moves, QWidget* parent = nullptr);

    /// Selects a row and brings it into sight; an invalid index selects nothing.
    void selectRow(const QModelIndex& index);

Q_SIGNALS:
    /// Double click on a row, or F2 on the current one. The click that belongs to a double click is reported once, by
    /// clicked(), before it.
    void opened(const QModelIndex& index);

    /// The Delete key on the current row.
    void removalAsked(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool actOnRow(const QKeyEvent& event);
    [[nodiscard]] QModelIndex selectedRow() const;

    const Moves m_moves;
    bool m_afterDoubleClick = false;
};

} // namespace lorvan
