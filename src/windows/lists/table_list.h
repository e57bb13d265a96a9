#pragma once

#include <QTreeView>

namespace lorvan {

/// A list of rows with columns. One row at a time is selected: highlighted while the list has the focus, otherwise
/// tinted. Texts that do not fit are shown as a tooltip, and an
/// empty list says in grey why it is.
class TableList : public QTreeView {
    Q_OBJECT

public:
    explicit TableList(QWidget* parent = nullptr);

    void setEmptyText(const QString& text);
    [[nodiscard]] const QString& emptyText() const { return m_emptyText; }

    /// The width of a column by a text that it holds, for all columns but the last, which takes what is left.
    void setColumnWidths(const QStringList& widestTexts);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void dress();
    bool showToolTip(const QPoint& position, const QPoint& globalPosition);

    QString m_emptyText;
};

} // namespace lorvan
