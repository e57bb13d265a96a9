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

/// The printing page `Panel1(3)`: the choice of a report and of its period, codes and groups.
class PrintingPage : public QWidget {
    Q_OBJECT

public:
    PrintingPage(Clock clock, QWidget* parent);

    /// Returns the button that prints; the window that holds the page connects it.
    [[nodiscard]] CommandButton* button() const { return m_print; }

    /// Sets the period to this month up to today and refills both lists, with nothing chosen.
    void fill(const std::vector<MovementCode>& codes, const std::vector<CodeGroup>& groups);

    /// Checks the period's dates that were left and have not been checked yet. Returns false if one was refused.
    bool settle() { return m_checks.settle(); }
    /// The same, but also checks the field that has the focus, since the page is about to be left.
    bool leaveAll() { return m_checks.leaveAll(); }

    /// What is to be printed, without the heading. If something is missing, a box says what.
    [[nodiscard]] std::optional<ReportRequest> request();

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
    std::vector<CodeGroup> m_offeredGroups; ///< Those shown in m_groups.
    PeriodButton* m_periods;
    ThemedLabel* m_periodHint;
    CommandButton* m_print;
};

} // namespace lorvan
