#include "core/reports/report_text.h"
#include "platform/files/settings_store.h"
#include "reports/cash_analysis_report.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "reports/report_omissions.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

namespace {

constexpr auto codesAndMovements =
    "DELETE FROM kvdikoi; INSERT INTO kvdikoi (kvdikos, perigrafh, lista, omada, aa_omadas) VALUES"
    " (40, 'Πωλήσεις', '   40 Πωλήσεις', 'Β|β', 3), (7, ' α | β ', '    7  α | β ', 'Άλφα', 2),"
    " (9, 'γ', '    9 γ', 'Β|β', 3), (40, 'άλλο', 'ποτέ', 'άλφα', 2), (50, '', NULL, ' ', 0);"
    "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos, aa_omada) VALUES"
    " (40, 20240301, ' α|β ', 10000, 0, 25000, 3), (40, 20240309, 'γ', 0, 20000000, 35001, 3),"
    " (40, 20240301, 'δ', 0, 0, -25000, 3), (3, 20240302, 'χωρίς', 12500, 0, 4999, 8),"
    " (7, 20240303, 'ε', 0, 5000, NULL, 2), (40, 20240301, ' α|β ', 10000, 0, 25000, 3),"
    " (40, 20240301, ' α|β ', 10000, 0, 35000, 3), (9, 20240229, 'πριν', 1, 1, 1, 3), (9, 20240401, 'μετά', 1, 1, 1, "
    "3)";

ReportInputs march()
{
    return {"1-3-24", "31-3-24", QDate(2024, 3, 1), QDate(2024, 3, 31), "Κεντρικό", {}, {}};
}

/// Each omission as its text and, in brackets, its lines' beginnings and what is said of the count.
QString toldOf(Connection& connection, Report report, const ReportInputs& inputs)
{
    QStringList told;
    for (const ReportOmission& omission : reportOmissions(connection, report, inputs)) {
        QStringList lines;
        for (const QString& line : omission.lines)
            lines += line.simplified();
        EXPECT_EQ(omission.concerned, lines.size());
        told += omission.text + " [" + lines.join("; ") + u']';
    }
    return told.join(u'\n');
}

class MovementReports : public testing::Test {
protected:
    MovementReports() { main.execute(codesAndMovements); }

    TemporaryBook book;
    Connection main = book.openMain();
    ReportInputs inputs = march();
};

QString subjects(const ReportDocument& document, int column)
{
    QStringList texts;
    for (const ReportItem& row : document.rows()) {
        const RowSubject subject = row.subject(column);
        texts += QString(u"-mcd"[static_cast<int>(subject.kind)]) + QString::number(subject.number);
    }
    return texts.join(u' ');
}

} // namespace

TEST_F(MovementReports, byCodeInDetail)
{
    const ReportDocument document = movementsByCodeReport(main, inputs);
    EXPECT_EQ(wholeOf(document),
        "Σύνολο κινήσεων  με επιλογή κωδικού από 1-3-24 έως 31-3-24   Κεντρικό / 350 450 / Arial greek"
        " / >800<1700<1300<3600>1250>1250>1250 / 0\n"
        "*~~~\n=*[2]α/α|Κωδ.|Ημερ/νια|Περιγραφή|Λ τάξεως|Έσοδο|Έξοδο\n*[2]|||||\n"
        "#1| |2/3/2024|χωρίς| |1,25| \n*[1]|||Υποσύνολο| |1,25| \n"
        "#2|7  α | β|3/3/2024|ε| | |0,50\n*[1]|||Υποσύνολο| | |0,50\n"
        "#3|40 Πωλήσεις|9/3/2024|γ|4,00| |2.000,00\n4| |1/3/2024|α|β|2,00|1,00| \n"
        "#5| |1/3/2024|δ|-2,00| | \n6| |1/3/2024|α|β|2,00|1,00| \n"
        "#7| |1/3/2024|α|β|4,00|1,00| \n*[2]|||Υποσύνολο|10,00|3,00|2.000,00\n"
        "*[3]|||Σύνολα|10,00|4,25|2.000,50\n*[3]||Διαφορά|-1.996,25");
    EXPECT_EQ(document.item(document.itemCount() - 1).textColour(), 255U);
    EXPECT_EQ(document.item(document.itemCount() - 2).textColour(), 0U);
}

TEST_F(MovementReports, byCodeInSummary)
{
    inputs.form = ReportForm::Summary;
    EXPECT_EQ(wholeOf(movementsByCodeReport(main, inputs)),
        "Σύνολο κινήσεων  με επιλογή κωδικού από 1-3-24 έως 31-3-24   Κεντρικό / 350 450 / Arial greek"
        " / >800<4300>1250>1250>1250 / 0\n*~~~\n=*[2]α/α|Κωδικος|Λ τάξεως|Έσοδο|Έξοδο\n*[2]||||\n"
        "#1|    7  α | β | | |0,50\n2|   40 Πωλήσεις|9,50|3,00|2.000,00\n"
        "#3|   40 άλλο|9,50|3,00|2.000,00\n*[3]|Σύνολα|19,00|6,00|4.000,50\n"
        "*[3]|Διαφορά  -3.994,50");
}

TEST_F(MovementReports, byGroup)
{
    main.execute("UPDATE kinhseis SET aa_omada=0, kvdikos=50 WHERE kvdikos=7");
    const ReportDocument document = movementsByGroupReport(main, inputs);
    EXPECT_EQ(wholeOf(document),
        "Σύνολο κινήσεων  με επιλογή ομάδας από 1-3-24 έως 31-3-24   Κεντρικό / 1400 450 / Arial greek"
        " / ^800<1800<1000^1500<4300>1900>1900>1900 / 0\n"
        "*~~~\n=*[2]α/α|Ομάδα|Κωδ.|Ημερ/νια|Περιγραφή|Έσοδο|Έξοδο|Λ ταξ\n*[2]||||||\n"
        "#1| |50|3/3/2024|ε| |0,50| \n*[1]||||Υποσύνολο| |0,50| \n"
        "#2|Β|β|40|9/3/2024|γ| |2.000,00|3,50\n3| |40|1/3/2024|α|β|1,00| |2,50\n"
        "#4| |40|1/3/2024|δ| | |-2,50\n5| |40|1/3/2024|α|β|1,00| |3,50\n"
        "#*[2]||||Υποσύνολο|2,00|2.000,00|7,00\n*[3]||||Σύνολα|2,00|2.000,50|7,00");
    EXPECT_EQ(document.page().orientation, ReportOrientation::Landscape);
}

TEST_F(MovementReports, sayThatThereIsNothing)
{
    inputs.codes = {12};
    inputs.groups = {8};
    const auto ending = [](const ReportDocument& document) { return linesOf(document).mid(2).join(u'/'); };
    const QString nothing = "/(13)~~Δεν βρέθηκαν εγγραφές";
    EXPECT_EQ(ending(movementsByCodeReport(main, inputs)), "*[2]|||||" + nothing);
    EXPECT_EQ(ending(movementsByGroupReport(main, inputs)), "*[2]||||||" + nothing);
    inputs.form = ReportForm::Summary;
    inputs.codes = {3};
    EXPECT_EQ(ending(movementsByCodeReport(main, inputs)), "*[2]||||" + nothing);
    inputs.cardColumns[0].groups = {99};
    EXPECT_EQ(ending(groupCardReport(main, inputs)), "*[2]|||||/~~ Δεν υπάρχουν αναφορές~");
}

TEST_F(MovementReports, groupCard)
{
    inputs.cardColumns[1] = {"Α | Β, γ", {2, 3, 3}};
    inputs.cardColumns[2] = {{}, {2, 99}};
    const ReportDocument document = groupCardReport(main, inputs);
    EXPECT_EQ(wholeOf(document),
        "Καρτέλα ομάδων από 1/3/2024  έως  31/3/2024   Κεντρικό / 450 850 / arial greek"
        " / <3500>1800<3500>1800<3500>1800 / 0\n"
        "*~~~\n=*[2]Χωρίς επιλογή|Ποσό|Α | Β, γ|  Ποσό||   Ποσό\n*[2]|||||\n"
        "#[9]||ε|0,50|ε|0,50\n[9]||γ|2.000,00||\n#[9]|| α|β |1,00||\n[9]||δ|0||\n"
        "*[9]|0||2.001,50||0,50");
    EXPECT_EQ(document.item(1).columns().at(3).alignment, ColumnAlignment::Centre);
    EXPECT_EQ(document.page().orientation, ReportOrientation::Landscape);
    EXPECT_EQ(document.headerFont().size, 13);
}

TEST_F(MovementReports, rowsStandForTheirMovementsOrCodes)
{
    EXPECT_EQ(subjects(movementsByCodeReport(main, inputs), 3), "-0 m4 -0 m5 -0 m2 m1 m3 m6 m7 -0 -0 -0");
    EXPECT_EQ(subjects(movementsByGroupReport(main, inputs), 0), "-0 m5 -0 m2 m1 m3 m7 -0 -0");
    inputs.form = ReportForm::Summary;
    EXPECT_EQ(subjects(movementsByCodeReport(main, inputs), 0), "-0 c7 c40 c40 -0 -0");
    inputs.cardColumns[1] = {"Α", {2, 3}};
    inputs.cardColumns[2] = {{}, {2}};
    const ReportDocument card = groupCardReport(main, inputs);
    const std::pair<int, const char*> cases[] = {
        {1, "-0 -0 -0 -0 -0 -0"}, {2, "-0 m5 m2 m1 m3 -0"}, {3, "-0 m5 m2 m1 m3 -0"}, {4, "-0 m5 -0 -0 -0 -0"}};
    for (const auto& [column, expected] : cases)
        EXPECT_EQ(subjects(card, column), expected) << column;
}

TEST_F(MovementReports, cashAnalysis)
{
    inputs.end = {};
    EXPECT_FALSE(hasCashAnalysis(main, inputs.start));
    EXPECT_EQ(wholeOf(cashAnalysisReport(main, inputs)),
        " / 350 450 / Arial greek /  / 0\n"
        "Δεν υπάρχει ταμείο για την ημερομηνία 1-3-24   Κεντρικό");
    main.execute("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240301, 30000, 0, 100000)");
    EXPECT_TRUE(hasCashAnalysis(main, inputs.start));
    inputs.analysisGroups = {{
        {"Α|α", {codeBoxOf("40 Πωλήσεις"), codeBoxOf({})}},
        {"Β", {codeBoxOf("40"), codeBoxOf("12 or 1=1")}},
        {"Γ", {CodeBox{{}, "40"}, CodeBox{"9 γ", "9"}}},
        {"Δ", {codeBoxOf("40 α"), codeBoxOf("40 β")}},
    }};
    main.execute("UPDATE kinhseis SET ejoda=800000 WHERE kvdikos=40 AND perigrafh='δ'");
    const ReportDocument analysis = cashAnalysisReport(main, inputs);
    EXPECT_EQ(subjects(analysis, 0), "d20240301 c40 c12 c9 c40 d20240301");
    inputs.analysisGroups[0].boxes[1] = codeBoxOf("9 γ");
    EXPECT_EQ(subjects(cashAnalysisReport(main, inputs), 2), "d20240301 c9 c12 c9 c40 d20240301");
    EXPECT_EQ(wholeOf(analysis),
        "|Ανάλυση ταμείου της 1-3-24   Κεντρικό / 350 450 / Arial greek / <3500>1900>1900>1900 / bed2c8\n"
        "~\n=Περιγραφή|Εσοδα    |Εξοδα    |Υπόλοιπο    \nΣυνολικό ταμείο|3,00|0,00|10,00\n"
        "#Α|α|||-77,00\n#Β|||0,00\n#Γ|||0,00\n#Δ|||-154,00\n#*Μετρητά στο ταμείο|||241,00");
}

TEST_F(MovementReports, tellWhatTheyLeaveOut)
{
    const QString deleted = "\nΕκτός εκτύπωσης: 1 κίνηση (έσοδα 1,25, έξοδα 0, Λ τάξεως 0,50), γιατί η "
                            "ομάδα τους διαγράφηκε ή δεν έχει κωδικούς."
                            " [02-03-2024 3 1,25 0 0,50 χωρίς]";
    inputs.cardColumns[1].groups = {2, 3};
    EXPECT_EQ(toldOf(main, Report::MovementsByGroup, inputs),
        "Όμοιες κινήσεις μετρούν μία φορά. Εκτός εκτύπωσης: 1 κίνηση (έσοδα 1,00, έξοδα 0, Λ τάξεως "
        "2,50). [01-03-2024 40 1,00 0 2,50 α|β (2 φορές)]"
            + deleted);
    EXPECT_EQ(toldOf(main, Report::GroupCard, inputs),
        "Όμοιες κινήσεις μετρούν μία φορά. Εκτός εκτύπωσης: 2 κινήσεις (έσοδα 2,00, έξοδα 0). "
        "[01-03-2024 40 1,00 0 α|β (3 φορές)]"
            + deleted);
    EXPECT_EQ(toldOf(main, Report::MovementsByCode, inputs),
        "Ο Λ τάξεως τυπώνεται σε ακέραια ευρώ και στρογγυλεύτηκε σε 6 κινήσεις: το άθροισμα δεν "
        "αλλάζει. [09-03-2024 40 0 2.000,00 3,50 γ; 02-03-2024 3 1,25 0 0,50 χωρίς; "
        "01-03-2024 40 1,00 0 3,50 α|β; 01-03-2024 40 1,00 0 2,50 α|β; 01-03-2024 40 0 0 -2,50 δ; "
        "01-03-2024 40 1,00 0 2,50 α|β]");
    inputs.codes = {3};
    EXPECT_TRUE(toldOf(main, Report::MovementsByCode, inputs).contains("αθροίζεται 0,00 αντί για 0,50"));
    inputs.codes = {};
    inputs.form = ReportForm::Summary;
    EXPECT_EQ(toldOf(main, Report::MovementsByCode, inputs),
        "Εκτός εκτύπωσης: 1 κίνηση (έσοδα 1,25, έξοδα 0, Λ τάξεως 0,50), γιατί ο κωδικός τους δεν "
        "υπάρχει πια. [02-03-2024 3 1,25 0 0,50 χωρίς]");
    inputs.groups = {2};
    EXPECT_EQ(toldOf(main, Report::MovementsByGroup, inputs), QString());
    main.execute("INSERT INTO tameio (hmeromhnia, ypoloipo) VALUES (20240301, 100000)");
    inputs.analysisGroups[0].boxes[0] = codeBoxOf("9 γ");
    EXPECT_EQ(toldOf(main, Report::CashAnalysis, inputs), QString());
    main.execute("UPDATE kinhseis SET ejoda=800000 WHERE kvdikos=9 AND hmeromhnia=20240229");
    EXPECT_EQ(toldOf(main, Report::CashAnalysis, inputs),
        "Τα «Μετρητά στο ταμείο» ξεπερνούν το υπόλοιπο της ημέρας κατά 80,00, γιατί ομάδες έχουν "
        "περισσότερα έξοδα από έσοδα. [29-02-2024 9 0,00 80,00 0,00 πριν]");
    inputs.start = inputs.end.addDays(1);
    EXPECT_EQ(toldOf(main, Report::MovementsByGroup, inputs),
        "Η αρχή της περιόδου, 01-04-2024, είναι μετά το τέλος της, 31-03-2024: δεν βρίσκεται τίποτα. "
        "[]");
    EXPECT_EQ(toldOf(main, Report::DailyCash, inputs), QString());
}

TEST(ReportChoices, areStoredAsTheyAreReadBack)
{
    const QTemporaryDir folder;
    const SettingsStore settings(folder.filePath("Lorvan.ini"));
    const auto stored = [&](const QString& section, const QString& key) { return settings.value(section, key, {}); };
    storeCardChoice(settings, {{{{0, 3, "Α, β"}, {3, 7, "\"γ\";"}}, {}, {{12, -1, " "}}}});
    EXPECT_EQ(stored("Listes", "List1(0)"), "0,3,");
    EXPECT_EQ(stored("Omades", "omada(0)"), "( aa_omada=3  or aa_omada=7)");
    EXPECT_EQ(stored("p_omadvn", "P_omadvn0"), "Α, β, \"γ\";");
    EXPECT_EQ(stored("Omades", "Omada(1)"), QString());
    EXPECT_EQ(stored("Omades", "Omada(2)"), "( aa_omada=-1)");
    EXPECT_EQ(storedCardPositions(settings, 2), std::vector<int>{12});
    settings.write({{"Listes", "List1(0)", ",x,-1, 5 ,99999999999,2"}});
    EXPECT_EQ(storedCardPositions(settings, 0), (std::vector<int>{5, 2}));

    AnalysisGroups groups = storedAnalysisGroups(settings);
    EXPECT_EQ(groups[3].title, "Ομαδα 4");
    groups[0].title = "Τράπεζα (α)";
    groups[1].boxes[1] = {"100 Είσπραξη, β", "100"};
    groups[3].boxes[1].text = "200";
    storeAnalysisGroups(settings, groups);
    EXPECT_EQ(stored("ANALYSHFRM", "omada1"), "Τράπεζα (α)");
    EXPECT_EQ(stored("AnakyshFRM", "3Kvd"), "100 Είσπραξη, β");
    const AnalysisGroups again = storedAnalysisGroups(settings);
    EXPECT_EQ(again[1].boxes[1].tag, "100 ");
    EXPECT_EQ(again[3].boxes[1].text + again[3].boxes[1].tag, "200");
}

} // namespace lorvan::test
