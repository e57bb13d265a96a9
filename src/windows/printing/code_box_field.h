#pragma once

#include "codes/cash_analysis_groups.h"

#include <QLineEdit>

namespace lorvan {

/// A read-only field that shows the code of a box: Delete empties it, Enter moves to the next control. A text that does
/// not fit is shown above its tooltip.
class CodeBoxField : public QLineEdit {
    Q_OBJECT

public:
    explicit CodeBoxField(QWidget* parent = nullptr);

    void setBox(const CodeBox& box);
    [[nodiscard]] const CodeBox& box() const { return m_box; }

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    CodeBox m_box;
};

} // namespace lorvan
