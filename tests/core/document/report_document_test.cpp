#include "core/reports/report_text.h"
#include "document/report_period.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(ReportFormat, readsColumnsAndDoesNotMindBadOnes)
{
    const std::pair<QStringView, const char*> cases[] = {{u"^1100|1000|<4000|>1500", "^1100<1000<4000>1500"},
        {u">^1800|^>900", "^1800>900"}, {u"> 900 | 0.5cm", ">900<283"},
        {u"abc||^|>-5|99999999999|nan|<1e3", "<0<0^0>0<0<0<1000"}, {u"", ""}};
    for (const auto& [format, columns] : cases)
        EXPECT_EQ(textOf(parseTableFormat(format)), QString::fromLatin1(columns));
}

TEST(ReportFormat, readsLengthsAndSplitsHeaders)
{
    const std::pair<const char*, std::optional<int>> lengths[] = {{"2cm", 1134}, {"0.5 CM", 283}, {"10mm", 567},
        {"1in", 1440}, {"12pt", 240}, {"850", 850}, {"cm", {}}, {"inf cm", {}}, {"", {}}};
    for (const auto& [text, twips] : lengths)
        EXPECT_EQ(ReportLength(QString::fromLatin1(text)).twips(), twips) << text;

    const std::pair<QString, const char*> headers[] = {
        {"left", "left//"}, {"|centre", "/centre/"}, {"a|b|c|d", "a/b/c|d"}};
    for (const auto& [text, parts] : headers) {
        const ThreeParts split = splitIntoThree(text);
        EXPECT_EQ(QStringList({split.left, split.centre, split.right}).join(u'/'), QString::fromLatin1(parts));
    }
}

TEST(ReportDocument, keepsEachRowAsItWasAdded)
{
    const QString format = "^100|<200";
    const QString header = "Κωδ.|Όνομα";
    ReportDocument document;
    document.SetFont({.bold = true});
    document.Paragraph(u"Τίτλος\r");
    document.SetTableBorder(2);
    document.AddTable(format, header, QString(" |"), reportColour(200, 210, 190));
    document.SetTableBorder(0);
    document.SetFont({.size = 11, .bold = false});
    document.AddTableRow(format, header, {u"1", u"Α|Β"}, 5, reportColour(222, 225, 225));
    document.SetTextColor(255);
    document.AddTableRow(">50", header, QString("μόνο"));
    document.SetTextColor(0);
    document.AddTable(format, QString(), QString("|2"));

    EXPECT_EQ(linesOf(document).join(u'\n'), "*Τίτλος~\n=*[2]Κωδ.|Όνομα\n*[2] |\n#(11)1|Α|Β\n(11)μόνο\n(11)|2");
    EXPECT_EQ(document.item(1).shade(), reportColour(200, 210, 190));
    EXPECT_EQ(document.cell(1, 1), "Α|Β");
    EXPECT_EQ(document.cell(2, 1), QString());
    const std::vector<ReportItem> rows = document.rows();
    EXPECT_EQ(rows[2].textColour(), 255U);
    EXPECT_EQ(rows[3].textColour(), 0U);
    EXPECT_EQ(textOf(rows[2].columns()), ">50");
    EXPECT_EQ(rows[2].header().join(u'/'), "Κωδ./Όνομα");
    EXPECT_TRUE(rows[3].header().isEmpty());
}

TEST(ReportDocument, startsAfreshWithThePageAndHeaderThatWereSet)
{
    const auto build = [](const QString& lastRow) {
        ReportDocument document;
        document.StandardPageSetup();
        document.AddTableRow("100", QString(), QString("παλιό"));
        document.SetMargins({.left = QString("2cm"), .right = QString("δύο")});
        document.SetHeader("|Τίτλος");
        document.StartDoc();
        document.AddTableRow("100", QString("Α"), QString("1"));
        document.AddTableRow("100", QString("Α"), lastRow);
        document.EndDoc();
        return document;
    };
    const ReportDocument document = build("2");
    EXPECT_EQ(wholeOf(document), "|Τίτλος / 1134 450 / Arial greek / <100 / 0\n=Α\n1\n2")
        << "the row began the table, and the margin that is no length stayed";
    EXPECT_TRUE(document == build("2"));
    EXPECT_FALSE(document == build("3"));
    EXPECT_FALSE(document == build("|2"));
}

TEST(UsualPeriods, atTheEdgesOfMonthsQuartersAndYears)
{
    const struct {
        QDate today;
        const char* periods; ///< Today, this month, last month, this quarter, this year, last year.
    } cases[] = {
        {QDate(2024, 3, 31), "0331-0331 0301-0331 0201-0229 0101-0331 0101-0331 230101-231231"},
        {QDate(2024, 1, 1), "0101-0101 0101-0101 231201-231231 0101-0101 0101-0101 230101-231231"},
        {QDate(2024, 12, 31), "1231-1231 1201-1231 1101-1130 1001-1231 0101-1231 230101-231231"},
    };
    for (const auto& each : cases) {
        QStringList periods;
        for (const NamedPeriod& period : usualPeriods(each.today)) {
            const QString form = period.start.year() == 2024 ? "MMdd" : "yyMMdd";
            periods += period.start.toString(form) + u'-' + period.end.toString(form);
        }
        EXPECT_EQ(periods.join(u' '), QString::fromUtf8(each.periods));
    }
}

} // namespace lorvan::test
