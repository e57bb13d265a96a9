#include "document/report_document.h"
#include "export/table_export.h"
#include "export/workbook_proof.h"
#include "support/files.h"
#include "support/mount.h"
#include "support/printing.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QString columns = "^800|1500|900|<3400|>1350";

ReportDocument cheques(int rows)
{
    ReportDocument document;
    document.SetHeader("Επιταγές 01-03-2024   Κεντρικό");
    document.Paragraph(u"\r");
    document.AddTable(columns, QString(" α/α|Ημερ/νια|Κωδ.|Περιγραφή|Λ τάξεως"), QString(" |  | | |"));
    for (int row = 0; row < rows; ++row)
        document.AddTableRow(columns, QString(),
            {QString("   1"), QString("Πα 15-03-2024"), QString("100"), u"Τιμ. 12;\"7\"", u"-1.250,50"});
    return document;
}

/// An archive of the two parts, not compressed.
QByteArray workbookOf(const QByteArray& types, const QByteArray& sheet)
{
    QByteArray content(4096, '\0');
    std::size_t used = 0;
    archive* const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    archive_write_zip_set_compression_store(zip);
    archive_write_open_memory(zip, content.data(), static_cast<std::size_t>(content.size()), &used);
    for (const auto& [name, part] :
        {std::pair("[Content_Types].xml", types), std::pair("xl/worksheets/sheet1.xml", sheet)}) {
        archive_entry* const entry = archive_entry_new();
        archive_entry_set_pathname(entry, name);
        archive_entry_set_size(entry, part.size());
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_write_header(zip, entry);
        archive_write_data(zip, part.constData(), static_cast<std::size_t>(part.size()));
        archive_entry_free(entry);
    }
    archive_write_free(zip);
    return content.first(static_cast<qsizetype>(used));
}

/// The number formats of a workbook by the styles that its cells name.
QStringList formatsOf(const QString& workbook)
{
    static const QRegularExpression ownFormat("<numFmt numFmtId=\"(\\d+)\" formatCode=\"([^\"]*)\"");
    static const QRegularExpression style("<xf numFmtId=\"(\\d+)\"");
    const QString styles = partOf(workbook, "xl/styles.xml");
    std::map<QString, QString> formats{{"0", "-"}, {"1", "0"}, {"4", "#,##0.00"}};
    for (const QRegularExpressionMatch& own : ownFormat.globalMatch(styles))
        formats[own.captured(1)] = own.captured(2);
    QStringList byStyle;
    for (const QRegularExpressionMatch& each :
        style.globalMatch(styles.section("<cellXfs", 1).section("</cellXfs", 0, 0)))
        byStyle += formats[each.captured(1)];
    return byStyle;
}

/// Each cell as place, number format and value.
QString cellsOf(const QString& workbook)
{
    const QStringList formats = formatsOf(workbook);
    QXmlStreamReader sheet(partOf(workbook, "xl/worksheets/sheet1.xml"));
    QStringList cells;
    while (!sheet.atEnd()) {
        if (sheet.readNext() != QXmlStreamReader::StartElement || sheet.name() != u"c")
            continue;
        const QString place = sheet.attributes().value(QLatin1String("r")).toString();
        const QString format = formats.value(sheet.attributes().value(QLatin1String("s")).toInt());
        cells += place + u' ' + format + u' ' + sheet.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return cells.join(u'\n');
}

class TableExport : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] QByteArray csvOf(const ReportDocument& document) const
    {
        EXPECT_TRUE(saveTable(document, path("t.csv"), TableFormat::Csv, {}));
        return readFile(path("t.csv"));
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(TableExport, csvIsWhatAGreekSpreadsheetReads)
{
    ReportDocument document = cheques(1);
    document.AddTableRow(columns, QString(), {u"", u"", u"", u"Διαφορά = 0", u"0"});
    EXPECT_EQ(csvOf(document),
        QByteArray("\xEF\xBB\xBF"
                   "Επιταγές 01-03-2024   Κεντρικό\r\n"
                   "α/α;Ημερ/νια;Κωδ.;Περιγραφή;Λ τάξεως\r\n"
                   "1;15/03/2024;100;\"Τιμ. 12;\"\"7\"\"\";-1250,50\r\n"
                   ";;;Διαφορά = 0;0\r\n"));
}

TEST_F(TableExport, spreadsheetHasNumbersAsNumbersAndDatesAsDates)
{
    ASSERT_TRUE(saveTable(cheques(1), path("τ.xlsx"), TableFormat::Xlsx, {}));
    EXPECT_EQ(cellsOf(path("τ.xlsx")),
        "A1 - Επιταγές 01-03-2024   Κεντρικό\n"
        "A2 - α/α\nB2 - Ημερ/νια\nC2 - Κωδ.\nD2 - Περιγραφή\nE2 - Λ τάξεως\n"
        "A3 0 1\nB3 [$-408]ddd dd/mm/yyyy 45366\nC3 0 100\nD3 - Τιμ. 12;\"7\"\nE3 #,##0.00 -1250.5");
}

TEST_F(TableExport, tellsNumbersAndDatesFromTexts)
{
    const std::pair<const char*, const char*> cases[] = {// a text, and its cell's format and value
        {"1.234.567,89", "#,##0.00 1234567.89"}, {"9.999.999.999.999,99", "#,##0.00 9999999999999.99"},
        {"-922.337.203.685.477,58", "#,##0.00 -922.337.203.685.477,58"}, {"0,05", "#,##0.00 0.05"},
        {"29/2/2024", "dd/mm/yyyy 45351"}, {"15-3-1850", "dd/mm/yyyy 15/03/1850"}, {"007", "- 007"}, {"1.5", "- 1.5"},
        {"12,5", "- 12,5"}, {"1234567890123456", "- 1234567890123456"}, {"29-02-2023", "- 29-02-2023"},
        {"=1+1", "- =1+1"}, {"<&>", "- <&>"}, {"Υπόλοιπο = 1,00", "- Υπόλοιπο = 1,00"}};
    for (const auto& [text, cell] : cases) {
        ReportDocument document;
        document.AddTable(">1000", QString(), QString::fromUtf8(text));
        ASSERT_TRUE(saveTable(document, path("t.xlsx"), TableFormat::Xlsx, {}));
        EXPECT_EQ(cellsOf(path("t.xlsx")), "A1 " + QString::fromUtf8(cell));
        const QByteArray sheet = partOf(path("t.xlsx"), "xl/worksheets/sheet1.xml");
        const double width = sheet.mid(sheet.indexOf(" width=\"") + 8).split('"').first().toDouble();
        EXPECT_TRUE(width > double(QByteArray(text).size()) || *cell != '#') << text;
    }
}

TEST_F(TableExport, aLeftColumnWithWordsKeepsItsDigitsAsText)
{
    ReportDocument document;
    document.AddTable("<1000|<1000", QString("Κωδ.|Περιγραφή"), QString("100|2024"));
    document.AddTableRow("<1000|<1000", QString(), {u"101", u"ΕΝΟΙΚΙΟ"});
    ASSERT_TRUE(saveTable(document, path("t.xlsx"), TableFormat::Xlsx, {}));
    EXPECT_TRUE(cellsOf(path("t.xlsx")).contains("A2 0 100\nB2 - 2024\nA3 0 101"));
}

TEST_F(TableExport, givenUpOrFailedLeavesTheEarlierFile)
{
    const QByteArray before = csvOf(cheques(2));
    const ReportDocument large = cheques(20'000);
    const auto giveUp = [](int done, int) { return done == 0; };
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Xlsx}) {
        EXPECT_FALSE(saveTable(large, path("t.csv"), format, giveUp));
        EXPECT_EQ(readFile(path("t.csv")), before);
        EXPECT_THROW((void)saveTable(large, path("λείπει/t.csv"), format, {}), TableExportError);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("t.csv"));
}

/// The library's own temporary files, where they do not fit, lose rows without a word.
TEST_F(TableExport, isWholeOrNotThereWhereADiskIsFull)
{
    if (!Mount::smallDisk(folder.path()))
        GTEST_SKIP() << "no small disk can be mounted here";
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Xlsx})
        EXPECT_THROW((void)saveTable(cheques(40'000), path("t"), format, {}), TableExportError);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());

    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder.path().toUtf8());
    const QTemporaryDir elsewhere("/tmp/lorvan-XXXXXX");
    int refused = 0;
    for (int rows = 250; rows < 2'500; rows += 250) {
        const QString target = elsewhere.filePath(QString::number(rows));
        try {
            ASSERT_TRUE(saveTable(cheques(rows), target, TableFormat::Xlsx, {}));
            EXPECT_GE(partOf(target, "xl/worksheets/sheet1.xml").count("</row>"), rows);
        } catch (const TableExportError&) {
            ++refused;
            EXPECT_FALSE(QFile::exists(target));
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    qputenv("TMPDIR", temporary);
    Mount::undo(folder.path());
}

TEST_F(TableExport, aWorkbookIsProvedWholePartByPart)
{
    const QByteArray types = "<Types/>";
    const QByteArray sheet = "<worksheet><row></row><row></row></worksheet>";
    const auto isWhole = [this](const QByteArray& archive) {
        writeFile(path("w.xlsx"), archive);
        try {
            proveWorkbook(path("w.xlsx"), {2});
            return true;
        } catch (const TableExportError&) {
            return false;
        }
    };
    const QByteArray sound = workbookOf(types, sheet);
    EXPECT_TRUE(isWhole(sound));
    EXPECT_FALSE(isWhole(QByteArray(sound).replace("<Types/>", "<types/>"))) << "another checksum";
    EXPECT_FALSE(isWhole(workbookOf("", sheet)));
    EXPECT_FALSE(isWhole(workbookOf("<Types><Default/>", sheet)));
    EXPECT_FALSE(isWhole(workbookOf(types, sheet.chopped(3))));
    EXPECT_FALSE(isWhole(workbookOf(types, QByteArray(sheet).replace("<row></row><", "<"))));
    EXPECT_FALSE(isWhole(QByteArray(sound).replace("sheet1", "sheet2")));
}

TEST_F(TableExport, moreRowsThanASheetHolds)
{
    ReportDocument large;
    for (int row = 0; row <= 1'048'576; ++row)
        large.AddTableRow("1000", QString(), {u"α"});
    EXPECT_THROW((void)saveTable(large, path("t.xlsx"), TableFormat::Xlsx, {}), TableExportError);
}

} // namespace lorvan::test
