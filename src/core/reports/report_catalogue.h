#pragma once

#include <QString>

#include <vector>

namespace lorvan {

/// The reports, by their numbers in the list.
enum class Report {
    DailyCash = 1,
    CodeList = 2,
    CashSummary = 3,
    MovementsByCode = 4,
    MovementsByGroup = 5,
    GroupCard = 6,
    Cheques = 7,
    CashAnalysis = 8,
    UnclosedDays = 9,
};

/// One line of the list of reports.
struct ReportEntry {
    Report report;
    QString text;

    /// The title of the report's window: the text without its number.
    [[nodiscard]] QString title() const;
};

/// Which dates of the period a report uses.
struct PeriodUse {
    bool start = true;
    bool end = true;
};

[[nodiscard]] PeriodUse periodUse(Report report);

/// Tells the user which date counts; empty if both do.
[[nodiscard]] QString periodHint(PeriodUse use);

/// The list of reports, in order.
[[nodiscard]] const std::vector<ReportEntry>& reportCatalogue();

} // namespace lorvan
