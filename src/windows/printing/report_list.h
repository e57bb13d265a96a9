#pragma once

#include "controls/plain_list.h"

namespace lorvan {

/// The list of reports on the printing page: a digit chooses the report of that number, Enter goes on to the next
/// field.
class ReportList : public PlainList {
    Q_OBJECT

public:
    explicit ReportList(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace lorvan
