#pragma once

#include "codes/cash_analysis_groups.h"

#include <QComboBox>

#include <vector>

namespace lorvan {

/// The list of codes that covers a box while its code is being chosen. It exists only for that: when the list closes,
/// the widget hides itself and emits a signal.
class CodeDropDown : public QComboBox {
    Q_OBJECT

public:
    explicit CodeDropDown(QWidget* parent = nullptr);

    void setCodes(const std::vector<CodeBox>& codes); ///< The item data is the code.

    /// Makes the line of a box's code current, or none, and opens the list.
    void openAt(const CodeBox& box);

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    void dismissed(); ///< Closed without a choice. A choice is reported by activated().

protected:
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void dismissWhenClosed();
    void widenList();
};

} // namespace lorvan
