#pragma once

#include "controls/plain_list.h"

namespace lorvan {

/// A list in which several rows can be chosen; a tick stands before each. A click toggles, with Shift it extends.
class TickList : public PlainList {
    Q_OBJECT

public:
    explicit TickList(Face face = Face::Desktop, QWidget* parent = nullptr);

    /// The data of the chosen rows, top to bottom.
    [[nodiscard]] std::vector<qint64> chosenData() const;

    [[nodiscard]] int textInset() const override { return 30; }
    [[nodiscard]] bool showsTicks() const override { return true; }

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
};

} // namespace lorvan
