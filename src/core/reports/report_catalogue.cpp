#include "reports/report_catalogue.h"

namespace lorvan {

QString ReportEntry::title() const
{
    return text.sliced(3);
}

PeriodUse periodUse(Report report)
{
    switch (report) {
    case Report::DailyCash:
        return {.start = false, .end = true};
    case Report::CashAnalysis:
        return {.start = true, .end = false};
    case Report::CodeList:
        return {.start = false, .end = false};
    default:
        return {};
    }
}

QString periodHint(PeriodUse use)
{
    if (use.start && use.end)
        return {};
    if (use.start)
        return QStringLiteral("Μετρά μόνο η πρώτη ημερομηνία.");
    if (use.end)
        return QStringLiteral("Μετρά μόνο η δεύτερη ημερομηνία.");
    return QStringLiteral("Η περίοδος δεν μετρά.");
}

const std::vector<ReportEntry>& reportCatalogue()
{
    static const std::vector<ReportEntry> entries{
        {Report::DailyCash, QStringLiteral("  1 Ταμείο ημέρας")},
        {Report::CodeList, QStringLiteral("  2 Κωδικοί κίνησης ")},
        {Report::CashSummary, QStringLiteral("  3 Συνοπτικό ταμείο από ... εως")},
        {Report::MovementsByCode, QStringLiteral("  4 Σύνολο ανα κωδικό")},
        {Report::MovementsByGroup, QStringLiteral("  5 Συνολο ανα ομάδα")},
        {Report::GroupCard, QStringLiteral("  6 Κατάσταση")},
        {Report::Cheques, QStringLiteral("  7 Επιταγές")},
        {Report::CashAnalysis, QStringLiteral("  8 Ανάλυση ταμείου ημέρας ")},
        {Report::UnclosedDays, QStringLiteral("  9 Ταμεία που δεν έχουν κλήσει !")},
    };
    return entries;
}

} // namespace lorvan
