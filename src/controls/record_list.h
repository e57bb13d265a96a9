#pragma once

#include <QListView>

namespace lorvan {

/// A list whose rows stand for records: a click shows one, a double click takes it up for a change. The keyboard does
/// the same for the current row of a list of single selection with the space bar and with F2.
class RecordList : public QListView {
    Q_OBJECT

public:
    explicit RecordList(QWidget* parent = nullptr);

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

private:
    bool m_afterDoubleClick = false;
};

} // namespace lorvan
