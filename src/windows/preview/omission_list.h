#pragma once

#include "reports/report_omissions.h"

#include <QDialog>

namespace lorvan {

/// Lists the movements or days of an omission. The arrow keys move in the list, Escape closes it.
class OmissionList : public QDialog {
    Q_OBJECT

public:
    OmissionList(const ReportOmission& omission, QWidget* parent);
};

} // namespace lorvan
