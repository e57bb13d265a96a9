#include "reports/closing_sheet.h"

#include "book/lock_trust.h"
#include "cashbook/counted_cash.h"
#include "cashbook/day_seal.h"
#include "cashbook/seal_texts.h"
#include "codes/code_catalogue.h"
#include "document/report_cells.h"
#include "document/report_table.h"
#include "movements/day_view.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "reports/code_sums.h"

#include <map>

namespace lorvan {
namespace {

const ReportProgress noQuestions; // a day is a page or two

constexpr auto codeColumns = "^1000|<5200|>900|>1700|>1700";
constexpr auto cashColumns = "<3000|>1400|>1900";
constexpr auto signatureColumns = "<5200|<5200";

/// All that the sheet shows, read in one transaction.
struct SheetContent {
    DayView view;
    std::optional<DaySeal> seal;
    std::optional<CountedCash> counted;
    std::map<qint32, QString> names; ///< Of the codes.

    [[nodiscard]] Currency carried() const { return seal ? seal->carried : view.carried.balance; }
    [[nodiscard]] Currency balance() const { return seal ? seal->balance : view.figures.closingBalance; }
};

SheetContent read(Connection& book, QDate day)
{
    const Transaction reading(book, Transaction::View::Steady);
    SheetContent closing{readDay(book, day), lastSealOf(book, day), countedCashOf(book, day), {}};
    for (const MovementCode& code : listCodes(book, CodeSelection::All))
        closing.names.emplace(code.code, code.description);
    return closing;
}

void addTitle(ReportDocument& document, const QString& title)
{
    document.Paragraph(lineBreak);
    document.SetFont({.size = 11, .bold = true});
    document.Paragraph(title);
    document.SetFont({.size = 10, .bold = false});
}

QString carriedText(const SheetContent& closing)
{
    const QDate from = closing.view.carried.fromDay;
    const bool namesDay = from.isValid() && closing.view.carried.difference.isZero();
    return (namesDay ? QStringLiteral("Υπόλοιπο από την ") + dateText(from)
                     : QStringLiteral("Υπόλοιπο από την προηγούμενη"))
        + QStringLiteral("    ") + amountText(closing.carried());
}

void addCodes(ReportDocument& document, const SheetContent& closing)
{
    struct Sums {
        int movements = 0;
        MovementSums amounts;
    };
    std::map<qint32, Sums> byCode;
    for (const Movement& movement : closing.view.movements) {
        Sums& sums = byCode[movement.code];
        ++sums.movements;
        sums.amounts += {movement.income, movement.expense, movement.memorandum};
    }
    ReportTable table(document, QLatin1String(codeColumns), noQuestions);
    table.begin(1, QStringLiteral("Κωδ.|Περιγραφή|Κινήσεις|Εσοδα|Εξοδα"), QStringLiteral(" | | | | "));
    for (const auto& [code, sums] : byCode) {
        const auto name = closing.names.find(code);
        table.addRow({QString::number(code), name == closing.names.end() ? QString() : name->second,
            QString::number(sums.movements), amountOrBlankText(sums.amounts.income),
            amountOrBlankText(sums.amounts.expense)});
        document.RowStandsFor({RowSubject::Kind::Code, code});
    }
    document.SetFont({.bold = true});
    table.addTotals({u"", u"Σύνολα", QString::number(closing.view.movements.size()),
        amountOrZeroText(closing.view.figures.income), amountOrZeroText(closing.view.figures.expense)});
    document.SetFont({.bold = false});
}

QString pieceText(std::size_t kind)
{
    return (kind < CountedCash::notes ? QStringLiteral("Χαρτονομίσματα ") : QStringLiteral("Κέρματα "))
        + CountedCash::worthText(kind);
}

void addCounted(ReportDocument& document, const SheetContent& closing)
{
    if (!closing.counted)
        return;
    addTitle(document, QStringLiteral("Καταμέτρηση"));
    ReportTable table(document, QLatin1String(cashColumns), noQuestions);
    table.begin(1, QStringLiteral("Αξία|Τεμάχια|Ποσό"), QStringLiteral(" | | "));
    for (std::size_t kind = 0; kind < CountedCash::worths.size(); ++kind) {
        if (closing.counted->count(kind) != 0)
            table.addRow({pieceText(kind), QString::number(closing.counted->count(kind)),
                amountText(closing.counted->amount(kind))});
    }
    document.SetFont({.bold = true});
    const Currency sum = closing.counted->sum();
    table.addTotals({u"Μετρήθηκαν", u"", amountText(sum)});
    table.addTotals({u"Διαφορά από το υπόλοιπο", u"", amountText(sum - closing.balance())});
    document.SetFont({.bold = false});
}

bool isAsSealed(const SheetContent& closing)
{
    return contentDigest(closing.view.movements) == closing.seal->content;
}

void addSeal(ReportDocument& document, const SheetContent& closing)
{
    addTitle(document, QStringLiteral("Σφραγίδα"));
    if (!closing.seal) {
        document.Paragraph(QStringLiteral("Η ημέρα δεν έχει σφραγίδα."));
        return;
    }
    document.SetFont({.size = 12, .bold = true});
    document.Paragraph(sealCodeText(*closing.seal));
    document.SetFont({.size = 10, .bold = false});
    document.Paragraph(sealOriginText(*closing.seal));
    if (const QString remark = sealRemarkText(*closing.seal); !remark.isEmpty())
        document.Paragraph(remark);
    if (!isAsSealed(closing))
        document.Paragraph(QStringLiteral("Προσοχή: οι κινήσεις δεν είναι όπως σφραγίστηκαν."));
    else if (closing.seal->carried != closing.view.carried.balance)
        document.Paragraph(QStringLiteral("Μεταβλήθηκε η μεταφορά: το υπόλοιπο από την προηγούμενη είναι τώρα %1.")
                               .arg(amountText(closing.view.carried.balance)));
}

void addSignatures(ReportDocument& document)
{
    document.Paragraph(QStringLiteral("\r\r"));
    document.AddTable(QLatin1String(signatureColumns), QStringView(), QStringLiteral("Ταμίας|Υπεύθυνος"));
    for (const auto* const line : {" | ", " | ", "______________________________|______________________________"})
        document.AddTableRow(QLatin1String(signatureColumns), QStringView(), QString::fromLatin1(line));
}

} // namespace

ReportDocument closingSheet(Connection& book, QDate day, const QString& heading)
{
    const SheetContent closing = read(book, day);
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = 850});
    document.SetHeader(QStringLiteral("Φύλλο κλεισίματος   ") + heading);
    document.StartDoc();
    document.SetFont({.size = 14, .bold = true});
    document.Paragraph(weekdayName(day) + u' ' + dateText(day));
    document.SetFont({.size = 10, .bold = false});
    document.Paragraph(lineBreak);
    document.Paragraph(carriedText(closing));
    document.Paragraph(lineBreak);
    addCodes(document, closing);
    document.SetFont({.size = 11, .bold = true});
    document.Paragraph(QStringLiteral("\rΥπόλοιπο ταμείου    ") + amountText(closing.balance()));
    document.SetFont({.size = 10, .bold = false});
    addCounted(document, closing);
    addSeal(document, closing);
    addSignatures(document);
    document.EndDoc();
    return document;
}

ReportDocument buildClosingSheet(
    QDate day, const QString& heading, const BookFiles& files, KeyRing& keys, const ReportProgress& progress)
{
    const StopCheck check([&progress] { return progress(0); });
    Connection book = openBoth(files, keys, Connection::Access::ReadOnly);
    ReportDocument document;
    readSteadily(book, [&] { document = closingSheet(book, day, heading); });
    return document;
}

QString closingSheetFileName(QDate day)
{
    return QStringLiteral("Φύλλο κλεισίματος ") + dateText(day);
}

} // namespace lorvan
