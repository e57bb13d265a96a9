#include "report_pages.h"
#include "report_pdf.h"
#include "reports/key_sheet.h"
#include "support/files.h"
#include "support/ink.h"
#include "support/mount.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lorvan::test {

namespace {

const QString format = "^1100|^1000|<4000|>1500|>1500";

ReportDocument dailyCash(int rows)
{
    ReportDocument document;
    document.SetHeader("Τ α μ ε ί ο  Η μ έ ρ α ς");
    document.AddTable(format, QString("α/α|Κωδ.|Περιγραφή|Εσοδα|Εξοδα"), QString("||||"));
    for (int row = 1; row <= rows; ++row)
        document.AddTableRow(
            format, QString(), {QString::number(row), u"100", u"ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ", u"1.250,00", u"0"});
    document.SetFont({.bold = true});
    document.AddTableRow(format, QString(), {u"", u"", u"Υπόλοιπο = 1,00", u"1.111,10", u"0"});
    return document;
}

QImage painted(const ReportDocument& document, double pixelsInTwip)
{
    const ReportPages pages(document);
    QImage image((pages.pageSize() * pixelsInTwip).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(pixelsInTwip, pixelsInTwip);
    pages.paintPage(painter, 0);
    return image;
}

} // namespace

TEST(ReportPages, paintNothingOutsideTheMargins)
{
    const struct {
        const char* name;
        QString format;
        QString text;
        double size;
    } cases[] = {
        {"a wide table", "<9000|<9000", "Μια|Άλλη", 10},
        {"a long word", "<11106", QString("Ω").repeated(300), 10},
        {"columns too narrow for their letters", "11100|<6", "|ΩΩΩ", 10},
        {"large letters", "<11106", "ΩΩΩΩΩΩΩ", 150},
    };
    for (const auto& [name, columns, text, size] : cases) {
        ReportDocument document;
        document.SetHeader(QString("Τίτλος ").repeated(100) + u'|' + QString("Ω").repeated(300));
        document.SetFont({.size = size});
        document.SetTableBorder(3);
        document.AddTableRow(columns, QString(), text, 0, reportColour(100, 100, 100));
        document.Paragraph(QString(text).remove(u'|').repeated(10));
        const QImage image = painted(document, 0.1);
        EXPECT_GE(inkIn(image).left(), 35 - 1) << name;
        EXPECT_LE(inkIn(image).right(), 1190 - 45) << name;
    }
}

TEST(ReportPages, endRightAlignedNumbersOnOnePixel)
{
    const QImage image = painted(dailyCash(3), 96.0 / 1440 * 2);
    std::vector<int> ends;
    for (int row = 2; row < 5; ++row)
        ends.push_back(inkIn(image, QRect(1040, 114 + row * 38, 160, 34)).right());
    ASSERT_GT(ends[0], 0);
    EXPECT_NEAR(ends[0], ends[1], 1);
    EXPECT_NEAR(ends[0], ends[2], 1);
}

TEST(ReportPages, setTextsThatNeedShapingAsWideAsTheirLetters)
{
    const auto widthOf = [](QStringView text) {
        ReportDocument document;
        document.SetFooter(QString());
        document.Paragraph(text);
        return inkIn(painted(document, 0.1)).width();
    };
    EXPECT_GT(widthOf(u"ααα"), 0);
    EXPECT_NEAR(widthOf(u"α\u0301α\u0301α\u0301"), widthOf(u"ααα"), 1) << "an accent takes no room of its own";
}

TEST(ReportPages, readAsTextLineByLine)
{
    ReportPages pages(dailyCash(60));
    ASSERT_TRUE(pages.layOut());
    EXPECT_TRUE(pages.textOf(0).startsWith(
        "Τ α μ ε ί ο  Η μ έ ρ α ς\nα/α\tΚωδ.\tΠεριγραφή\tΕσοδα\tΕξοδα\n1\t100\tΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ"));
    EXPECT_TRUE(pages.textOf(1).endsWith("Υπόλοιπο = 1,00\t1.111,10\t0\nΣελίδα 2"));
    EXPECT_EQ(pages.textOf(2), QString());
}

TEST(ReportPages, areFoundInSlices)
{
    const ReportDocument document = dailyCash(1000);
    ReportPages slices(document);
    EXPECT_EQ(slices.pageCount(), 1);
    EXPECT_FALSE(slices.layOut(QDeadlineTimer(0)));
    EXPECT_TRUE(slices.layOut());
    EXPECT_EQ(slices.pageCount(), 20);
}

TEST(ReportPages, findTextAsGreeksTypeIt)
{
    using Direction = ReportPages::Direction;
    ReportDocument document = dailyCash(95);
    document.AddTableRow("<1300", QString(), QString("τέλος μιας αναφοράς"));
    ReportPages pages(std::move(document));
    const struct {
        QStringView text;
        std::optional<int> firstPage;
        std::size_t areas;
    } cases[] = {
        {u"περιγραφη", 0, 1},
        {u"πωλήσεις λιανικησ", 0, 51},
        {u"ΥΠΟΛΟΙΠΟ", 1, 1},
        {u"σελιδα 2", 1, 1},
        {u"μιας αναφορας", 1, 2},
        {u"δεν υπάρχει", {}, 0},
        {u"", {}, 0},
    };
    for (const auto& [text, firstPage, areas] : cases) {
        const SearchText wanted(text);
        EXPECT_EQ(pages.pageWith(wanted, 0, Direction::Forward), firstPage) << text.toString().toStdString();
        EXPECT_EQ(pages.find(wanted, firstPage.value_or(0)).size(), areas) << text.toString().toStdString();
    }
    EXPECT_EQ(pages.pageWith(SearchText(u"Κωδ."), 1, Direction::Backward), 1);
    EXPECT_EQ(pages.pageWith(SearchText(u"ταμειο"), 1, Direction::Backward), std::nullopt);

    const QRectF area = pages.find(SearchText(u"περιγρ"), 0).front();
    EXPECT_NEAR(area.left(), 350 + 2100 + 60, 1);
    EXPECT_NEAR(area.center().y(), 850 + 285 / 2, 10);
}

TEST(ReportPdf, holdsTextThatCanBeSearchedAndItsFonts)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("report.pdf");
    ReportPages pages(dailyCash(60));
    ASSERT_EQ(savePdf(pages, path, {}), PageOutcome::Done);

    const QString text = QString::fromUtf8(outputOf("pdftotext", {"-layout", path, "-"}));
    EXPECT_EQ(text.count("ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ"), 60);
    EXPECT_EQ(text.count("Περιγραφή"), 2);
    EXPECT_TRUE(text.contains("Υπόλοιπο = 1,00"));
    EXPECT_TRUE(text.contains("Σελίδα 2"));
    const auto fonts = outputOf("pdffonts", {path}).trimmed().split('\n').sliced(2);
    EXPECT_EQ(fonts.size(), 2);
    for (const QByteArray& font : fonts)
        EXPECT_TRUE(font.contains("LiberationSans") && font.contains("yes"));
}

TEST(ReportPdf, leavesAnEarlierFileWhereItCannotBeWhole)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("report.pdf");
    if (!Mount::smallDisk(folder.path()))
        GTEST_SKIP() << "no disk can be mounted here that is full";
    const QString ballast = folder.filePath("ballast");
    writeFile(path, "earlier");
    writeFile(ballast, QByteArray(630 * 1024, ' '));

    ReportPages pages(dailyCash(1000));
    EXPECT_THROW((void)savePdf(pages, path, {}), PageOutputError);
    EXPECT_EQ(readFile(path), "earlier");

    QFile::remove(ballast);
    int calls = 0;
    const auto cancelAtThree = [&calls](int done, int all) {
        EXPECT_EQ(all, 20);
        return calls = done, done < 3;
    };
    EXPECT_EQ(savePdf(pages, path, cancelAtThree), PageOutcome::Cancelled);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(readFile(path), "earlier");
    Mount::undo(folder.path());
}

TEST(KeySheet, IsOneSheet)
{
    ReportPages pages(keySheet("Κεντρικό"));
    EXPECT_TRUE(pages.layOut());
    EXPECT_EQ(pages.pageCount(), 1);
}

} // namespace lorvan::test
