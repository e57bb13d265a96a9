#pragma once

#include "controls/command_button.h"
#include "document/report_period.h"
#include "platform/clock.h"

namespace lorvan {

/// A small button that offers the usual periods in a menu.
class PeriodButton : public CommandButton {
    Q_OBJECT

public:
    PeriodButton(Clock clock, QWidget* parent);

Q_SIGNALS:
    void chosen(const lorvan::NamedPeriod& period);

private:
    void offer();

    Clock m_clock;
};

} // namespace lorvan
