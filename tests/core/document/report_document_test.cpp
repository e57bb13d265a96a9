#include "document/report_document.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan {

namespace {

QString columnsText(const std::vector<ReportColumn>& columns)
{
    QStringList texts;
    for (const ReportColumn& column : columns)
        texts.append(QStringLiteral("<^>")[static_cast<int>(column.alignment)] + QString::number(column.width));
    return texts.join(u'|');
}

QString shown(const ReportItem& item)
{
    return QStringLiteral("%1 %2%3 border %4 colour %5 shade %6")
        .arg(item.cells().join(u'/'))
        .arg(item.font().size)
        .arg(item.font().bold ? QStringLiteral(" bold") : QString())
        .arg(item.border())
        .arg(item.textColour())
        .arg(item.shade(), 0, 16);
}

} // namespace

TEST(ReportFormat, readsColumnsAndDoesNotMindBadOnes)
{
    const struct {
        QStringView format;
        QStringView columns;
    } cases[] = {
        {u"^1100|1000|<4000|>1500", u"^1100|<1000|<4000|>1500"},
        {u">^1800|^>900", u"^1800|>900"},
        {u"> 900 | 0.5cm", u">900|<283"},
        {u"abc||^|>-5|99999999999|nan|<1e3", u"<0|<0|^0|>0|<0|<0|<1000"},
        {u"", u""},
    };
    for (const auto& [format, columns] : cases)
        EXPECT_EQ(columnsText(parseTableFormat(format)), columns.toString());
}

TEST(ReportFormat, readsLengthsAndSplitsHeaders)
{
    const struct {
        QString text;
        std::optional<int> twips;
    } lengths[] = {
        {QStringLiteral("2cm"), 1134},
        {QStringLiteral("0.5 CM"), 283},
        {QStringLiteral("10mm"), 567},
        {QStringLiteral("1in"), 1440},
        {QStringLiteral("12pt"), 240},
        {QStringLiteral("850"), 850},
        {QStringLiteral("cm"), {}},
        {QStringLiteral("inf cm"), {}},
        {QString(), {}},
    };
    for (const auto& [text, twips] : lengths)
        EXPECT_EQ(ReportLength(text).twips(), twips) << text.toStdString();

    const struct {
        QStringView text;
        QStringView parts;
    } headers[] = {{u"left", u"left//"}, {u"|centre", u"/centre/"}, {u"a|b|c|d", u"a/b/c|d"}};
    for (const auto& [text, parts] : headers) {
        const ThreeParts split = splitIntoThree(text.toString());
        EXPECT_EQ(QStringList({split.left, split.centre, split.right}).join(u'/'), parts.toString());
    }
}

TEST(ReportDocument, keepsEachRowAsItWasAdded)
{
    const QString format = QStringLiteral("^100|<200");
    const QString header = QStringLiteral("Κωδ.|Όνομα");
    ReportDocument document;
    document.SetFont({.bold = true});
    document.Paragraph(u"Τίτλος\r");
    document.SetTableBorder(2);
    document.AddTable(format, header, QStringLiteral(" |"), reportColour(200, 210, 190));
    document.SetTableBorder(0);
    document.SetFont({.size = 11, .bold = false});
    document.AddTableRow(format, header, {u"1", u"Α|Β"}, 5, reportColour(222, 225, 225));
    document.SetTextColor(255);
    document.AddTableRow(QStringLiteral(">50"), header, QStringLiteral("μόνο"));
    document.SetTextColor(0);
    document.AddTable(format, QString(), QStringLiteral("|2"));

    QStringList items;
    for (int index = 0; index < document.itemCount(); ++index)
        items.append(shown(document.item(index)));
    EXPECT_EQ(items.join(u'\n'),
        QStringLiteral("Τίτλος\r 10 bold border 0 colour 0 shade 0\n"
                       "Κωδ./Όνομα 10 bold border 2 colour 0 shade bed2c8\n"
                       " / 10 bold border 2 colour 0 shade 0\n"
                       "1/Α|Β 11 border 0 colour 0 shade e1e1de\n"
                       "μόνο 11 border 0 colour 255 shade 0\n"
                       "/2 11 border 0 colour 0 shade 0"));
    EXPECT_EQ(document.cell(1, 1), QStringLiteral("Α|Β"));
    EXPECT_EQ(document.cell(2, 1), QString());
    const std::vector<ReportItem> rows = document.rows();
    EXPECT_EQ(columnsText(rows[2].columns()), QStringLiteral(">50"));
    EXPECT_EQ(rows[2].header().join(u'/'), QStringLiteral("Κωδ./Όνομα"));
    EXPECT_TRUE(rows[3].header().isEmpty());
}

TEST(ReportDocument, startsAfreshWithThePageAndHeaderThatWereSet)
{
    const auto build = [](const QString& lastRow) {
        ReportDocument document;
        document.StandardPageSetup();
        document.AddTableRow(QStringLiteral("100"), QString(), QStringLiteral("παλιό"));
        document.SetMargins({.left = QStringLiteral("2cm"), .right = QStringLiteral("δύο")});
        document.SetHeader(QStringLiteral("|Τίτλος"));
        document.StartDoc();
        document.AddTableRow(QStringLiteral("100"), QStringLiteral("Α"), QStringLiteral("1"));
        document.AddTableRow(QStringLiteral("100"), QStringLiteral("Α"), lastRow);
        document.EndDoc();
        return document;
    };
    const ReportDocument document = build(QStringLiteral("2"));
    EXPECT_EQ(document.page().left, 1134);
    EXPECT_EQ(document.page().right, 450);
    EXPECT_EQ(document.header(), QStringLiteral("|Τίτλος"));
    EXPECT_EQ(document.rows().size(), 2U);
    EXPECT_EQ(document.rows().back().header(), QStringList(QStringLiteral("Α"))) << "the row began the table";

    EXPECT_TRUE(document == build(QStringLiteral("2")));
    EXPECT_FALSE(document == build(QStringLiteral("3")));
    EXPECT_FALSE(document == build(QStringLiteral("|2")));
}

} // namespace lorvan
