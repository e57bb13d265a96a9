#pragma once

#include <QDialog>

namespace lorvan {

/// Shows what was done, on several lines that can be selected and copied.
class ReportWindow : public QDialog {
    Q_OBJECT

public:
    ReportWindow(const QString& title, const QString& report, QWidget* parent);
};

} // namespace lorvan
