#include "reports/journal_report.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "document/report_cells.h"
#include "document/report_table.h"
#include "journal/journal_reading.h"
#include "journal/journal_texts.h"
#include "platform/date_text.h"
#include "platform/stop_check.h"

namespace lorvan {
namespace {

constexpr std::size_t rowsOfSlice = 1000;

QStringList cellsOf(const JournalRow& row)
{
    return {journalTimeText(row), row.user, row.computer, row.day ? dateText(dateFromStored(*row.day)) : QString(),
        row.code ? QString::number(*row.code) : QString(), journalActionText(row), journalSummary(row)};
}

/// Of a movement that is gone, the day is left.
RowSubject subjectOf(const JournalRow& row)
{
    bool isNumber = false;
    const qint64 key = row.subject.section(u'/', 1).toLongLong(&isNumber);
    if (isNumber && row.after && journalKind(row.subject) == JournalKind::Movement)
        return {RowSubject::Kind::Movement, key};
    if (row.day)
        return {RowSubject::Kind::Day, *row.day};
    return row.code ? RowSubject{RowSubject::Kind::Code, *row.code} : RowSubject();
}

/// Returns the number of rows.
int addRows(ReportDocument& document, ReportTable& table, Connection& main, const JournalFilter& filter,
    const ReportProgress& progress)
{
    JournalReading reading(filter);
    int count = 0;
    while (!reading.isAtEnd()) {
        for (const JournalRow& row : reading.readOn(main, rowsOfSlice)) {
            table.addRow(cellsOf(row));
            document.RowStandsFor(subjectOf(row));
            ++count;
        }
        if (!progress(count))
            throw ReportCancelled();
    }
    return count;
}

} // namespace

ReportDocument journalReport(
    Connection& main, const JournalFilter& filter, const QString& heading, const ReportProgress& progress)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.SetOrientation(ReportOrientation::Landscape);
    document.SetHeader(QStringLiteral("Ιστορικό αλλαγών   ") + heading);
    document.StartDoc();
    document.Paragraph(journalFilterText(filter));
    document.Paragraph(lineBreak);
    document.SetFont({.size = 9});
    ReportTable table(document, QStringLiteral("<1950|<1600|<1500|<1250|>850|<2600|<6250"), progress);
    table.begin(1, QStringLiteral("Πότε|Χρήστης|Υπολογιστής|Ημέρα|Κωδ.|Ενέργεια|Τι άλλαξε"), QStringLiteral("||||||"));
    if (addRows(document, table, main, filter, progress) == 0)
        document.Paragraph(QStringLiteral("Δεν υπάρχει καμία αλλαγή."));
    document.EndDoc();
    return document;
}

ReportDocument buildJournalReport(const JournalFilter& filter, const QString& heading, const BookFiles& files,
    KeyRing& keys, const ReportProgress& progress)
{
    int rows = 0;
    const auto count = [&rows, &progress](int built) {
        rows = built;
        return progress(built);
    };
    const ReportProgress counting(count, [&progress](const ReportDocument& beginning) { progress.begun(beginning); });
    const StopCheck check([&rows, &progress] { return progress(rows); });
    Connection main = openBookFile(files.mainDatabase(), keys);
    return journalReport(main, filter, heading, counting);
}

} // namespace lorvan
