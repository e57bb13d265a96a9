#include "reports/search_report.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/stop_check.h"
#include "search/code_names.h"
#include "search/movement_search.h"
#include "search/search_texts.h"

namespace lorvan {
namespace {

SearchHits find(Connection& main, const SearchQuery& query, const ReportProgress& progress)
{
    MovementSearch search(query);
    SearchHits hits;
    while (!search.isAtEnd()) {
        hits.add(search.readOn(main));
        if (!progress(0))
            throw ReportCancelled();
    }
    return hits;
}

QString sumText(const SearchTotals& totals, Currency sum)
{
    return totals.isOutOfRange ? QStringLiteral("εκτός ορίων") : amountOrZeroText(sum);
}

void addRows(ReportDocument& document, ReportTable& table, const SearchHits& hits, const CodeNames& names)
{
    hits.forEach([&](const SearchHit& hit) {
        table.addRow({dateText(dateFromStored(hit.day)), QString::number(hit.code), names.value(hit.code),
            QString::fromUtf8(hit.description.data(), static_cast<qsizetype>(hit.description.size())),
            amountOrZeroText(hit.income), amountOrZeroText(hit.expense), hit.cheque ? QStringLiteral("§") : QString()});
        document.RowStandsFor({RowSubject::Kind::Movement, hit.key});
    });
    const SearchTotals& totals = hits.totals();
    table.addTotals({u"Σύνολα", u"", u"", movementCountText(totals.count), sumText(totals, totals.income),
        sumText(totals, totals.expense), u""});
}

} // namespace

ReportDocument searchReport(
    Connection& main, const SearchQuery& query, const QString& heading, const ReportProgress& progress)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.SetOrientation(ReportOrientation::Landscape);
    document.SetHeader(QStringLiteral("Αναζήτηση κινήσεων   ") + heading);
    document.StartDoc();
    document.Paragraph(searchQueryText(query));
    document.Paragraph(lineBreak);
    document.SetFont({.size = 9});
    const SearchHits hits = find(main, query, progress);
    ReportTable table(document, QStringLiteral("<1250|>850|<3600|<5100|>1900|>1900|^500"), progress);
    table.begin(1, QStringLiteral("Ημέρα|Κωδ.|Περιγραφή κωδικού|Περιγραφή|Έσοδα|Έξοδα|Επ."), QStringLiteral("||||||"));
    if (hits.totals().count == 0)
        document.Paragraph(QStringLiteral("Δεν βρέθηκε καμία κίνηση."));
    else
        addRows(document, table, hits, codeNames(main));
    document.EndDoc();
    return document;
}

ReportDocument buildSearchReport(const SearchQuery& query, const QString& heading, const BookFiles& files,
    KeyRing& keys, const ReportProgress& progress)
{
    const StopCheck check([&progress] { return progress(0); });
    Connection main = openBookFile(files.mainDatabase(), keys);
    return searchReport(main, query, heading, progress);
}

} // namespace lorvan
