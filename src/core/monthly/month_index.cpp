#include "monthly/month_index.h"

#include "book/version.h"
#include "document/report_cells.h"
#include "journal/check_code.h"
#include "platform/date_text.h"
#include "proof/findings_text.h"

namespace lorvan {
namespace {

const QString style = QStringLiteral(
    "body{font-family:sans-serif;max-width:50em;margin:2em auto;padding:0 1em;color:#1c2330;background:#fff}"
    "h1{font-size:1.5em;margin-bottom:0}h2{font-size:1.1em;margin-top:2em}"
    "table{border-collapse:collapse;width:100%}th,td{text-align:left;padding:.25em .6em;border-bottom:1px solid #ccc}"
    ".n{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}thead{display:table-header-group}"
    "tr{break-inside:avoid}small{color:#555}@media print{body{margin:0;max-width:none}a{color:inherit}}");

QString cell(const QString& html)
{
    return QStringLiteral("<td>%1</td>").arg(html);
}

QString number(const QString& text, const QString& tag = QStringLiteral("td"))
{
    return QStringLiteral("<%1 class=\"n\">%2</%1>").arg(tag, text);
}

QString row(const QString& cells)
{
    return QStringLiteral("<tr>") + cells + QStringLiteral("</tr>\n");
}

QString link(const QString& target, const QString& text)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(target, text);
}

QString sumsTable(const MonthContent& content)
{
    const auto line = [](const QString& what, Currency amount) {
        return row(cell(what) + number(exactAmountText(amount)));
    };
    QString rows = line(QStringLiteral("Υπόλοιπο από τον προηγούμενο μήνα"), content.carried)
        + line(QStringLiteral("Έσοδα"), content.income) + line(QStringLiteral("Έξοδα"), content.expense);
    if (!content.difference().isZero())
        rows += line(QStringLiteral("Υπόλοιπα ανοίγματος μέσα στον μήνα"), content.difference());
    rows += line(QStringLiteral("Υπόλοιπο στο τέλος του μήνα"), content.balance);
    return QStringLiteral("<table>") + rows + QStringLiteral("</table>\n");
}

/// The code of the day's last seal; the seals come by version.
QString lastCodeOf(const MonthContent& content, QDate day)
{
    QString code;
    for (const DaySeal& seal : content.seals) {
        if (seal.day == storedDate(day))
            code = checkCode(seal.hash);
    }
    return code;
}

QString daysTable(const MonthContent& content, const MonthIndex& index)
{
    const auto title = [](const char* text) { return number(QString::fromUtf8(text), QStringLiteral("th")); };
    QString rows;
    for (std::size_t each = 0; each < content.days.size(); ++each) {
        const MonthDay& day = content.days[each];
        QString name = weekdayDateText(day.day);
        if (each < index.firstPages.size())
            name = link(QStringLiteral("%1#page=%2").arg(index.dayFile).arg(index.firstPages[each]), name);
        rows += row(cell(name) + number(exactAmountText(day.figures.income))
            + number(exactAmountText(day.figures.expense)) + number(exactAmountText(day.figures.closingBalance))
            + cell(
                day.isClosed ? QStringLiteral("κλειστή ") + lastCodeOf(content, day.day) : QStringLiteral("ανοικτή")));
    }
    return QStringLiteral("<table><thead><tr><th>Ημέρα</th>") + title("Έσοδα") + title("Έξοδα") + title("Υπόλοιπο")
        + QStringLiteral("<th>Ταμείο</th></tr></thead>\n") + rows + QStringLiteral("</table>\n");
}

QString filesTable(const std::vector<MonthFile>& files)
{
    QString rows;
    for (const MonthFile& file : files)
        rows += row(cell(link(file.name, file.name)) + cell(file.about));
    return QStringLiteral("<table>") + rows + QStringLiteral("</table>\n");
}

} // namespace

QByteArray monthIndexPage(const MonthContent& content, const MonthIndex& index)
{
    const QString month = monthText(content.month);
    const QString heading = index.heading.toHtmlEscaped();
    const QString made = QStringLiteral("Γράφτηκε στις %1 από το Lorvan %2. Κινήσεις του μήνα: %3.")
                             .arg(index.made.toString(QStringLiteral("dd-MM-yyyy HH:mm")), programVersion())
                             .arg(content.movements.size());
    const QString page = QStringLiteral("<!DOCTYPE html>\n<html lang=\"el\"><head><meta charset=\"utf-8\">"
                                        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>")
        + month + QStringLiteral(" – ") + heading + QStringLiteral("</title>\n<style>") + style
        + QStringLiteral("</style></head><body>\n<h1>") + heading + QStringLiteral("</h1>\n<p>Πακέτο μήνα: <b>") + month
        + QStringLiteral("</b><br><small>") + made + QStringLiteral("</small></p>\n<h2>Σύνολα</h2>\n")
        + sumsTable(content) + QStringLiteral("<h2>Ημέρες</h2>\n") + daysTable(content, index)
        + QStringLiteral("<h2>Αρχεία</h2>\n") + filesTable(index.files) + QStringLiteral("</body></html>\n");
    return page.toUtf8();
}

} // namespace lorvan
