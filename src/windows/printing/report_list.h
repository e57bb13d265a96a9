#pragma once

#include "lists/plain_list.h"

namespace lorvan {

/// The list of reports on the printing page: a digit selects the report with that number, Enter moves to the next
/// field.
class ReportList : public PlainList {
    Q_OBJECT

public:
    explicit ReportList(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace lorvan
