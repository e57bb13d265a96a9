#include "monthly/month_documents.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "export/table_csv.h"
#include "journal/check_code.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/stop_check.h"
#include "reports/daily_cash_report.h"

#include <QBuffer>
#include <QDateTime>

namespace lorvan {
namespace {

std::vector<TableCell> texts(const QStringList& values)
{
    std::vector<TableCell> cells;
    for (const QString& value : values)
        cells.push_back({TableCell::Kind::Text, value, {}, {}});
    return cells;
}

std::vector<TableCell> cellsOf(const DaySeal& seal)
{
    std::vector<TableCell> cells = texts({{}, QString::number(seal.version), checkCode(seal.hash), seal.user,
        QDateTime::fromMSecsSinceEpoch(seal.at).toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"))});
    cells.front() = {TableCell::Kind::Date, {}, {}, dateFromStored(seal.day)};
    return cells;
}

} // namespace

std::vector<ReportDocument> dayReports(Connection& main, const MonthContent& content, const QString& heading)
{
    std::vector<ReportDocument> reports;
    for (const MonthDay& each : content.days) {
        continueOrGiveUp();
        ReportInputs inputs;
        inputs.start = inputs.end = each.day;
        inputs.startText = inputs.endText = dateText(each.day);
        inputs.heading = heading;
        reports.push_back(dailyCashReport(main, inputs));
    }
    return reports;
}

ReportDocument codeSumsReport(const MonthContent& content, const QString& heading)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.SetHeader(
        QStringLiteral("Σύνολα ανά κωδικό   ") + monthText(content.month) + QStringLiteral("   ") + heading);
    document.Paragraph(lineBreak);
    document.SetFont({.size = 9});
    const ReportProgress unwatched;
    ReportTable table(document, QStringLiteral(">800|<3300|<2200|>900|>1400|>1400|>1100"), unwatched);
    table.begin(1, QStringLiteral("Κωδ.|Περιγραφή|Ομάδα|Κινήσεις|Έσοδα|Έξοδα|Λ τάξεως"), QStringLiteral("||||||"));
    Currency memorandum;
    for (const MonthCode& code : content.codes) {
        table.addRow({QString::number(code.code), code.description, code.group, QString::number(code.movements),
            amountOrBlankText(code.income), amountOrBlankText(code.expense), amountOrBlankText(code.memorandum)});
        memorandum += code.memorandum;
    }
    document.SetFont({.bold = true});
    table.addTotals({u"", QStringLiteral("Σύνολα"), u"", QString::number(content.movements.size()),
        amountOrZeroText(content.income), amountOrZeroText(content.expense), amountOrBlankText(memorandum)});
    document.EndDoc();
    return document;
}

QByteArray sealsTable(const MonthContent& content)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    CsvSink sink(buffer);
    sink.addRow(texts({QStringLiteral("Ημέρα"), QStringLiteral("Έκδοση"), QStringLiteral("Κωδικός ελέγχου"),
                    QStringLiteral("Χρήστης"), QStringLiteral("Ώρα")}),
        {});
    for (const DaySeal& seal : content.seals)
        sink.addRow(cellsOf(seal), {});
    sink.finish();
    return buffer.data();
}

} // namespace lorvan
