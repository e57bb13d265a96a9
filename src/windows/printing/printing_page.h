#pragma once

#include "codes/code_catalogue.h"
#include "controls/control_array.h"
#include "controls/leave_checks.h"
#include "platform/clock.h"
#include "reports/report_building.h"

#include <QWidget>

#include <optional>
#include <vector>

class QLayout;

namespace lorvan {

class ChoiceList;
class CommandButton;
class EntryField;
class PeriodButton;
class ReportList;
class ThemedLabel;

/// The printing page `Panel1(3)`: the choice of a report, its period, codes and groups.
class PrintingPage : public QWidget {
    Q_OBJECT

public:
    PrintingPage(Clock clock, QWidget* parent);

    /// Sets the period to this month up to today and fills both lists anew, with nothing chosen.
    void fill(const std::vector<MovementCode>& codes, const std::vector<CodeGroup>& groups);

    /// Judges the period's dates that were left and not judged yet. False when one was refused.
    bool settle() { return m_checks.settle(); }
    /// The same, with the field that has the focus judged too: the page is about to go.
    bool leaveAll() { return m_checks.leaveAll(); }

    /// What is to be printed, the heading apart. Where something is missing, a box says what.
    [[nodiscard]] std::optional<ReportRequest> request();

Q_SIGNALS:
    void commandPressed(int index);

private:
    [[nodiscard]] const ReportEntry* chosenEntry() const;
    void showPeriodUse();
    [[nodiscard]] bool checkPeriod();
    [[nodiscard]] ReportInputs inputs() const;
    QLayout* reportColumn();
    QLayout* choiceColumn();
    QWidget* periodFrame();
    EntryField* addDate(int index, const QString& name);
    void setTabOrders();

    Clock m_clock;
    LeaveChecks m_checks;
    ControlArray<EntryField> m_fields;
    ReportList* m_reports;
    ChoiceList* m_codes;
    ChoiceList* m_groups;
    std::vector<CodeGroup> m_offeredGroups; ///< What m_groups shows.
    PeriodButton* m_periods;
    ThemedLabel* m_periodHint;
    CommandButton* m_print;
};

} // namespace lorvan
