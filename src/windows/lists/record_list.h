#pragma once

#include <QListView>

namespace lorvan {

/// A list whose rows represent records: a click shows a record, a double click opens it for a change. In a list with
/// single selection, the space bar clicks the current row and F2 opens it.
class RecordList : public QListView {
    Q_OBJECT

public:
    /// Whether moving to another row with the keyboard counts as a click on it.
    enum class Moves { Click, Select };

    explicit RecordList(Moves moves, QWidget* parent = nullptr);

    /// Selects a row and scrolls to it; an invalid index selects nothing.
    void selectRow(const QModelIndex& index);

    /// Said in grey and to assistive tools while the model has no more than that many rows, which are always there.
    /// Needs a model.
    void setEmptyText(const QString& text, int usualRows = 0);

Q_SIGNALS:
    /// Double click on a row, or F2 on the current one. The click that is part of a double click is reported once, by
    /// clicked(), before it.
    void opened(const QModelIndex& index);

    /// The Delete key on the current row.
    void removalAsked(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool actOnRow(const QKeyEvent& event);
    [[nodiscard]] QModelIndex selectedRow() const;
    void describe();

    const Moves m_moves;
    QString m_emptyText;
    int m_usualRows = 0;
    bool m_afterDoubleClick = false;
};

} // namespace lorvan
