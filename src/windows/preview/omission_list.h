#pragma once

#include "reports/report_omissions.h"

#include <QDialog>

namespace lorvan {

/// Lists the movements or days that an omission concerns. Arrows move in the list, Escape closes.
class OmissionList : public QDialog {
    Q_OBJECT

public:
    OmissionList(const ReportOmission& omission, QWidget* parent);
};

} // namespace lorvan
