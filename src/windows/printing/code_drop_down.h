#pragma once

#include "codes/cash_analysis_groups.h"

#include <QComboBox>

#include <vector>

namespace lorvan {

/// The list of codes that lies over a box while its code is being chosen. It is there only for that: with its list it
/// goes away itself, and its user is told.
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
    void dismissed(); ///< Left without a choice. A choice is told by activated().

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
