#pragma once

#include "lists/plain_list.h"

namespace lorvan {

/// A list in which several rows can be chosen, with a tick box before each. A click or the space bar toggles, a click
/// with Shift extends; typing the beginning of a row moves to it.
class TickList : public PlainList {
    Q_OBJECT

public:
    explicit TickList(Face face = Face::Desktop, QWidget* parent = nullptr);

    /// The data of the chosen rows, top to bottom.
    [[nodiscard]] std::vector<qint64> chosenData() const;

    /// To be used while another control selects the current row.
    void setCurrentMarked(bool isMarked);

    [[nodiscard]] int textInset() const override { return 30; }
    [[nodiscard]] bool showsTicks() const override { return true; }
    [[nodiscard]] bool marksCurrent() const override { return m_marksCurrent; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    bool m_marksCurrent = false;
};

} // namespace lorvan
