#include "core/reports/report_text.h"
#include "reports/cash_summary_report.h"
#include "reports/cheque_report.h"
#include "reports/code_list_report.h"
#include "reports/daily_cash_report.h"
#include "reports/report_building.h"
#include "reports/report_omissions.h"
#include "reports/unclosed_days_report.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

namespace {

ReportInputs period(QDate start, QDate end)
{
    const QString typed = "d/M/yy";
    return {start.toString(typed), end.toString(typed), start, end, "Κεντρικό", {}, {}};
}

} // namespace

TEST(DailyCashReport, printsTheDayFromTheBalanceCarriedIntoIt)
{
    const TemporaryBook book;
    book.execute("INSERT INTO tameio (hmeromhnia, ypoloipo) VALUES (20240310, 1), (20240312, 5000000), (20240315, 7);"
                 "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda) VALUES"
                 " (100, 20240315, 'α | β' || char(10) || 'γ', 12500000, 0), (1, 20240316, 'άλλη', 1, 0),"
                 " (20, 20240315, replace(hex(zeroblob(250)), '0', 'δ'), 0, 20005000),"
                 " (NULL, 20240315, NULL, NULL, NULL)");
    Connection main = book.openMain();
    const ReportDocument document = dailyCashReport(main, period(QDate(2024, 3, 1), QDate(2024, 3, 15)));
    EXPECT_EQ(wholeOf(document),
        QString("Τ α μ ε ί ο  Η μ έ ρ α ς   15/3/24  Κεντρικό / 350 450 / arial greek"
                " / ^1100^1000<4000>1500>1500 / 0\n~\nΥπόλοιπο από την 12-03-2024    500,00~\n~\n"
                "=[1]  α/α|Κωδ.|Περιγραφή|Εσοδα|Εξοδα\n[1] |  | | |\n#   1|100|α | β\nγ|1.250,00|0\n"
                "   2|20|%1|0|2.000,50\n#   3|0||0|0\n*||Υπόλοιπο = -250,50|1.250,00|2.000,50")
            .arg(QString(500, u'δ')));
    EXPECT_EQ(document.rows().at(1).cell(2).toString(), "α | β\nγ");
}

TEST(DailyCashReport, carriesNothingIntoADateThatIsNoCashDay)
{
    const struct {
        const char* cashDays;
        QString carried, balance;
    } cases[] = {
        {"(20240314, 1000000)", "προηγούμενη 0", "0"},
        {"(20240315, 1000000)", "προηγούμενη 0", "0"},
        {"(20240313, 5), (20240314, 0), (20240315, 1)", "προηγούμενη 0", "0"},
        {"(20240314, -12505000), (20240315, 0)", "14-03-2024    -1.250,50", "-1250,5"},
        {"(20240314, 100000000), (20240315, 0)", "14-03-2024    10.000,00", "10000"},
        {"(20240314, 5), (20240315, 0)", "14-03-2024    0,00", "0,0005"},
        {"(20240311, 7), (20240315, 0); INSERT INTO opening_difference VALUES (20240311, 1), (20240313, 4999993)",
            "προηγούμενη 500,00", "500"},
        {"(20240315, 0); INSERT INTO opening_difference VALUES (20240315, -5000000), (20240316, 1)",
            "προηγούμενη -500,00", "-500"},
    };
    for (const auto& [cashDays, carried, balance] : cases) {
        const TemporaryBook book;
        book.execute(std::string("INSERT INTO tameio (hmeromhnia, ypoloipo) VALUES ") + cashDays);
        Connection main = book.openMain();
        EXPECT_EQ(linesOf(dailyCashReport(main, period({}, QDate(2024, 3, 15)))).join(u'\n'),
            QString("~\nΥπόλοιπο από την %1~\n~\n*Σύνολο εσόδων 0~Συνολο εξόδων 0~Υπόλοιπο %2").arg(carried, balance))
            << cashDays;
    }
}

TEST(PeriodReports, haveTheirTitlesColumnsAndEmptyForms)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    ReportInputs inputs = period(QDate(2024, 3, 9), QDate(2024, 3, 16));
    const QString head = "Αποτελέσματα ταμείου συνοπτικά από 9/3/24 έως 16/3/24   Κεντρικό / 350 450 / Arial greek"
                         " / >1000>1800>1800>1800<2000 / 0\n~\n=*[2]α/α|Έσοδα|Έξοδα|Υπόλοιπο|Ημερομηνία\n*[2] | | |\n";
    EXPECT_EQ(wholeOf(cashSummaryReport(main, inputs)), head + "*Σύνολα |0|0|0");
    book.execute(
        "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240317, 1, 1, 1),"
        " (20240309, 0, 12345600, -12345600), (20240316, 10000000, 0, 0), (20240308, 1, 1, 1), (NULL, 1, 1, 1)");
    EXPECT_EQ(wholeOf(cashSummaryReport(main, inputs)),
        head
            + "#1|1.000,00|0|0|16/3/2024\n2|0|1.234,56|-1.234,56|9/3/2024\n"
              "*Σύνολα |1.000,00|1.234,56|-234,56");
    EXPECT_EQ(
        linesOf(chequeReport(main, inputs)).join(u'\n'), "Δεν υπάρχουν καταχωρήσεις επιταγών στο παραπάνω διάστημα");
    book.execute("INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, epitagh, L_tajeos, esoda, ejoda) VALUES"
                 " (8, 20240310, 'γ', -1, 30000, 12500000, 0), (7, 20240316, 'α|β', -1, NULL, NULL, NULL),"
                 " (8, 20240310, 'δ', -1, 5000, 12500000, 0), (3, 20240310, '', -1, 0, 0, 20000)");
    EXPECT_EQ(wholeOf(chequeReport(main, inputs)),
        "Εκτύπωση επιταγών από 09-03-2024 έως 16-03-2024   Κεντρικό / 283 283 / arial greek"
        " / ^800<1500<900<3400>1350>1250>1250 / 0\n~\n"
        "=[1] α/α|Ημερ/νια|Κωδ.|Περιγραφή|Λ τάξεως|Εσοδα|Εξοδα\n[1] |  | | ||\n"
        "#   1|Σά 16-03-2024|7|α|β| |0|0\n   2|Κυ 10-03-2024|3|| |0|2,00\n"
        "#   3|Κυ 10-03-2024|8|γ|3,00|1.250,00|0\n   4|Κυ 10-03-2024|8|δ|0,50|1.250,00|0\n"
        "*(11)|||Διαφορά = 2.498,00|3,50|2.500,00|2,00");
    inputs.form = ReportForm::Summary;
    EXPECT_EQ(wholeOf(chequeReport(main, inputs)),
        "Εκτύπωση επιταγών συνοπτικά από 09-03-2024 έως 16-03-2024   Κεντρικό / 283 283"
        " / courier new greek / ^800<1800<2500 / 0\n~\n=[1] α/α|Ημερ/νια|Σύνολο LT\n[1]|||\n"
        "#   1|Κυ 10-03-2024|           \n   2|Κυ 10-03-2024|       3,50\n"
        "#   3|Σά 16-03-2024|           ");
}

TEST(PeriodReports, refuseSumsOutOfRange)
{
    const TemporaryBook book;
    book.execute("INSERT INTO tameio (hmeromhnia, esoda) VALUES (20240301, 9223372036854775807), (20240302, 1);"
                 "INSERT INTO kinhseis (hmeromhnia, L_tajeos, esoda, epitagh)"
                 " VALUES (20240302, 9223372036854775807, 1, -1), (20240302, 1, 1, -1)");
    Connection main = book.openMain();
    ReportInputs inputs = period(QDate(2024, 3, 1), QDate(2024, 3, 2));
    EXPECT_THROW((void)cashSummaryReport(main, inputs), CurrencyOverflow);
    EXPECT_THROW((void)chequeReport(main, inputs), CurrencyOverflow);
    inputs.form = ReportForm::Summary;
    EXPECT_THROW((void)chequeReport(main, inputs), CurrencyOverflow);
}

TEST(CodeListReport, sortsInGreekOrderAndThenByCode)
{
    const TemporaryBook book;
    book.execute(
        "DELETE FROM kvdikoi; INSERT INTO kvdikoi (kvdikos, perigrafh, omada, energos) VALUES"
        " (30,'Ωμέγα','β',-1), (20,'άλφα',' ',-1), (20,'Βήτα','Α',0), (100,'βήτα','Β',-1), (3,NULL,NULL,NULL)");
    Connection main = book.openMain();
    const QString head = "Κωδικοί κίνησης   Κεντρικό / 350 450 / Arial greek"
                         " / ^1500^1500<3000<3000 / dcffff\n~\n=[1]α/α|Κωδ.|Περιγραφή|Ομάδα\n[1]|||";
    const struct {
        CodeSort sort;
        CodeSelection selection;
        QString rows;
    } cases[] = {
        {CodeSort::Code, CodeSelection::All, "\n#1|3||\n2|20|άλφα| \n#3|20|Βήτα|Α\n4|30|Ωμέγα|β\n#5|100|βήτα|Β"},
        {CodeSort::Description, CodeSelection::All, "\n#1|3||\n2|20|άλφα| \n#3|20|Βήτα|Α\n4|100|βήτα|Β\n#5|30|Ωμέγα|β"},
        {CodeSort::Group, CodeSelection::Active, "\n#1|20|άλφα| \n2|30|Ωμέγα|β\n#3|100|βήτα|Β"},
    };
    ReportInputs inputs = period({}, {});
    for (const auto& expected : cases) {
        inputs.sort = expected.sort;
        inputs.selection = expected.selection;
        EXPECT_EQ(wholeOf(codeListReport(main, inputs)), head + expected.rows);
    }
    book.execute("DELETE FROM kvdikoi");
    EXPECT_EQ(wholeOf(codeListReport(main, inputs)), head);
}

TEST(UnclosedDaysReport, listsTheDaysBetweenClosedOnes)
{
    const TemporaryBook book;
    Connection auxiliary = book.openAuxiliary();
    const QDate first(2024, 3, 14);
    EXPECT_EQ(
        linesOf(unclosedDaysReport(auxiliary, period(first, first))).join(u'\n'), "Δεν υπάρχουν κλεισμένα ταμεία");
    auxiliary.execute("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES"
                      " (20240318), (20240314), (20240314), (NULL), (20240231), (20240315)");
    const QString frame = "|Ταμεία που δεν έχουν κλήσει    Κεντρικό / 1134 450 / Arial greek / ";
    const QString head = ">800^1800<1800 / dcdcf0\n=(11)AA  |    Ημερομηνία | Ημ. εβδομάδος\n(11)|||";
    const struct {
        int from, to;
        QString rest;
        QStringList hidden; ///< days that the report says nothing of
    } cases[] = {
        {0, 4, head + "\n#(11)1|16-03-2024|Σάββατο\n(11)2|17-03-2024|Κυριακή", {}},
        {0, 2, head, {"16-03-2024  Σάββατο"}},
        {3, 3, head, {"17-03-2024  Κυριακή"}},
        {4, 1, head, {}},
        {-1, 5, " / 0\nΤελευταία ημερομηνία ταμείου 18-03-2024",
            {"19-03-2024  Τρίτη", "17-03-2024  Κυριακή", "16-03-2024  Σάββατο", "13-03-2024  Τετάρτη"}},
        {-1, 1, " / 0\nΠρώτη ημερομηνία ταμείου 14-03-2024", {"13-03-2024  Τετάρτη"}},
    };
    for (const auto& [from, to, rest, hidden] : cases) {
        const ReportInputs inputs = period(first.addDays(from), first.addDays(to));
        EXPECT_EQ(wholeOf(unclosedDaysReport(auxiliary, inputs)), frame + rest) << from << " to " << to;
        QStringList told;
        for (const ReportOmission& omission : reportOmissions(auxiliary, Report::UnclosedDays, inputs))
            told += omission.lines;
        EXPECT_EQ(told, hidden) << from << " to " << to;
    }
}

TEST(Reports, areSavedUnderTheirTitleAndWhatTheyCover)
{
    const ReportInputs inputs = period(QDate(2024, 3, 1), QDate(2024, 3, 15));
    const struct {
        Report report;
        const char* title;
        const char* name;
    } cases[] = {
        {Report::DailyCash, " Ταμείο ημέρας", "Ταμείο ημέρας 15-03-2024"},
        {Report::CashAnalysis, " Ανάλυση ταμείου ημέρας ", "Ανάλυση ταμείου ημέρας 01-03-2024"},
        {Report::CodeList, " Κωδικοί κίνησης ", "Κωδικοί κίνησης"},
        {Report::CashSummary, " Συνοπτικό ταμείο από ... εως", "Συνοπτικό ταμείο 01-03-2024 έως 15-03-2024"},
        {Report::UnclosedDays, " Ταμεία που δεν έχουν κλήσει !",
            "Ταμεία που δεν έχουν κλήσει 01-03-2024 έως 15-03-2024"},
    };
    for (const auto& [report, title, name] : cases)
        EXPECT_EQ(suggestedFileName({report, title, inputs}), name);
}

TEST(Reports, numberOnBeyondSixteenBitsAndCanBeGivenUp)
{
    const TemporaryBook book;
    book.execute("WITH RECURSIVE rows(number) AS (SELECT 1 UNION ALL SELECT number+1 FROM rows WHERE number<40000)"
                 " INSERT INTO kinhseis (hmeromhnia) SELECT 20240301 FROM rows");
    Connection main = book.openMain();
    const ReportInputs inputs = period(QDate(2024, 3, 1), QDate(2024, 3, 1));
    EXPECT_EQ(dailyCashReport(main, inputs).cell(40'000, 0), "40000");
    EXPECT_THROW((void)dailyCashReport(main, inputs, [](int rows) { return rows < 2000; }), ReportCancelled);
    EXPECT_NO_THROW(book.execute("DELETE FROM kinhseis")) << "nothing stays locked";
}

} // namespace lorvan::test
