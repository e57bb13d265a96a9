#pragma once

#include "reports/report_omissions.h"

#include <QWidget>

class QVBoxLayout;

namespace lorvan {

/// The strip above a report's pages that says what the report leaves out, one line for each omission, with a button
/// that lists the movements or days concerned. Hidden if there is nothing to say.
class OmissionStrip : public QWidget {
    Q_OBJECT

public:
    explicit OmissionStrip(QWidget* parent);

    /// Replaces the previous omissions. The buttons come after `before` in the tab order.
    void tell(const std::vector<ReportOmission>& omissions, QWidget* before);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* add(const ReportOmission& omission, QWidget* before);
    void clear();

    QVBoxLayout* m_rows;
};

} // namespace lorvan
