#pragma once

#include "reports/report_omissions.h"

#include <QWidget>

class QVBoxLayout;

namespace lorvan {

/// The strip above a report's pages that tells what the report leaves out, a line for each, with a button that lists
/// the movements or days concerned. Hidden as long as there is nothing to tell.
class OmissionStrip : public QWidget {
    Q_OBJECT

public:
    explicit OmissionStrip(QWidget* parent);

    /// Replaces what was told before. Its buttons come next after `before` in the tab order.
    void tell(const std::vector<ReportOmission>& omissions, QWidget* before);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* add(const ReportOmission& omission, QWidget* before);
    void clear();

    QVBoxLayout* m_rows;
};

} // namespace lorvan
