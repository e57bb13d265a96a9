#include "document/report_document.h"
#include "export/table_export.h"
#include "export/workbook_proof.h"
#include "support/mount.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QString columns = QStringLiteral("^800|1500|900|<3400|>1350");

ReportDocument cheques(int rows)
{
    ReportDocument document;
    document.SetHeader(QStringLiteral("Επιταγές 01-03-2024   Κεντρικό"));
    document.Paragraph(QStringLiteral("\r"));
    document.AddTable(columns, QStringLiteral(" α/α|Ημερ/νια|Κωδ.|Περιγραφή|Λ τάξεως"), QStringLiteral(" |  | | |"));
    for (int row = 0; row < rows; ++row)
        document.AddTableRow(columns, QString(), {u"   1", u"Πα 15-03-2024", u"100", u"Τιμ. 12;\"7\"", u"-1.250,50"});
    return document;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QByteArray partOf(const QString& archive, const QString& part)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), archive, part});
    EXPECT_TRUE(unzip.waitForFinished() && unzip.exitCode() == 0) << part.toStdString();
    return unzip.readAllStandardOutput();
}

/// Stored, not compressed.
void writeZip(const QString& path, const std::vector<std::pair<QByteArray, QByteArray>>& parts)
{
    archive* const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    archive_write_zip_set_compression_store(zip);
    archive_write_open_filename(zip, QFile::encodeName(path).constData());
    for (const auto& [name, content] : parts) {
        archive_entry* const entry = archive_entry_new();
        archive_entry_set_pathname(entry, name.constData());
        archive_entry_set_size(entry, content.size());
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_write_header(zip, entry);
        archive_write_data(zip, content.constData(), static_cast<std::size_t>(content.size()));
        archive_entry_free(entry);
    }
    archive_write_free(zip);
}

/// The number formats of a workbook by the styles that its cells name.
QStringList formatsOf(const QString& workbook)
{
    QXmlStreamReader styles(partOf(workbook, QStringLiteral("xl/styles.xml")));
    std::map<int, QString> formats{{0, QStringLiteral("-")}, {1, QStringLiteral("0")}, {4, QStringLiteral("#,##0.00")}};
    QStringList byStyle;
    bool isCellStyle = false;
    while (styles.readNextStartElement() || !styles.atEnd()) {
        const auto attributes = styles.attributes();
        if (!styles.isStartElement())
            continue;
        if (styles.name() == u"numFmt")
            formats[attributes.value(QLatin1String("numFmtId")).toInt()] =
                attributes.value(QLatin1String("formatCode")).toString();
        isCellStyle = isCellStyle || styles.name() == u"cellXfs";
        if (styles.name() == u"cellStyles")
            break;
        if (styles.name() == u"xf" && isCellStyle)
            byStyle += formats[attributes.value(QLatin1String("numFmtId")).toInt()];
    }
    return byStyle;
}

/// Each cell as place, number format and value.
QString cellsOf(const QString& workbook)
{
    const QStringList formats = formatsOf(workbook);
    QXmlStreamReader sheet(partOf(workbook, QStringLiteral("xl/worksheets/sheet1.xml")));
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
        return contentOf(path("t.csv"));
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
        QStringLiteral("A1 - Επιταγές 01-03-2024   Κεντρικό\n"
                       "A2 - α/α\nB2 - Ημερ/νια\nC2 - Κωδ.\nD2 - Περιγραφή\nE2 - Λ τάξεως\n"
                       "A3 0 1\nB3 [$-408]ddd dd/mm/yyyy 45366\nC3 0 100\nD3 - Τιμ. 12;\"7\"\nE3 #,##0.00 -1250.5"));
}

TEST_F(TableExport, tellsNumbersAndDatesFromTexts)
{
    const struct {
        QString text;
        QString format;
        QString value;
    } cases[] = {
        {QStringLiteral("1.234.567,89"), QStringLiteral("#,##0.00"), QStringLiteral("1234567.89")},
        {QStringLiteral("9.999.999.999.999,99"), QStringLiteral("#,##0.00"), QStringLiteral("9999999999999.99")},
        {QStringLiteral("-922.337.203.685.477,58"), QStringLiteral("#,##0.00"),
            QStringLiteral("-922.337.203.685.477,58")},
        {QStringLiteral("0,05"), QStringLiteral("#,##0.00"), QStringLiteral("0.05")},
        {QStringLiteral("007"), QStringLiteral("-"), QStringLiteral("007")},
        {QStringLiteral("1.5"), QStringLiteral("-"), QStringLiteral("1.5")},
        {QStringLiteral("12,5"), QStringLiteral("-"), QStringLiteral("12,5")},
        {QStringLiteral("1234567890123456"), QStringLiteral("-"), QStringLiteral("1234567890123456")},
        {QStringLiteral("29/2/2024"), QStringLiteral("dd/mm/yyyy"), QStringLiteral("45351")},
        {QStringLiteral("29-02-2023"), QStringLiteral("-"), QStringLiteral("29-02-2023")},
        {QStringLiteral("=1+1"), QStringLiteral("-"), QStringLiteral("=1+1")},
        {QStringLiteral("<&>"), QStringLiteral("-"), QStringLiteral("<&>")},
        {QStringLiteral("Υπόλοιπο = 1,00"), QStringLiteral("-"), QStringLiteral("Υπόλοιπο = 1,00")},
    };
    for (const auto& each : cases) {
        ReportDocument document;
        document.AddTable(QStringLiteral(">1000"), QString(), {each.text});
        ASSERT_TRUE(saveTable(document, path("t.xlsx"), TableFormat::Xlsx, {}));
        EXPECT_EQ(cellsOf(path("t.xlsx")), QStringLiteral("A1 %1 %2").arg(each.format, each.value));
        const QByteArray sheet = partOf(path("t.xlsx"), QStringLiteral("xl/worksheets/sheet1.xml"));
        const double width = sheet.mid(sheet.indexOf(" width=\"") + 8).split('"').first().toDouble();
        EXPECT_TRUE(width > double(each.text.size()) || !each.format.startsWith(u'#')) << each.text.toStdString();
    }
}

TEST_F(TableExport, aLeftColumnWithWordsKeepsItsDigitsAsText)
{
    ReportDocument document;
    document.AddTable(QStringLiteral("<1000|<1000"), QStringLiteral("Κωδ.|Περιγραφή"), QStringLiteral("100|2024"));
    document.AddTableRow(QStringLiteral("<1000|<1000"), QString(), {u"101", u"ΕΝΟΙΚΙΟ"});
    ASSERT_TRUE(saveTable(document, path("t.xlsx"), TableFormat::Xlsx, {}));
    EXPECT_TRUE(cellsOf(path("t.xlsx")).contains(QStringLiteral("A2 0 100\nB2 - 2024\nA3 0 101")));
}

TEST_F(TableExport, givenUpOrFailedLeavesTheEarlierFile)
{
    const QByteArray before = csvOf(cheques(2));
    const ReportDocument large = cheques(20'000);
    const auto giveUp = [](int done, int) { return done == 0; };
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Xlsx}) {
        EXPECT_FALSE(saveTable(large, path("t.csv"), format, giveUp));
        EXPECT_EQ(contentOf(path("t.csv")), before);
        EXPECT_THROW((void)saveTable(large, path("λείπει/t.csv"), format, {}), TableExportError);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("t.csv")));
}

TEST_F(TableExport, aFullDiskIsTold)
{
    if (!Mount::smallDisk(folder.path()))
        GTEST_SKIP() << "no small disk can be mounted here";
    const ReportDocument large = cheques(40'000);
    const QByteArray temporary = qgetenv("TMPDIR");
    for (const bool isTemporaryFull : {false, true}) {
        if (isTemporaryFull)
            qputenv("TMPDIR", folder.path().toUtf8());
        for (const TableFormat format : {TableFormat::Csv, TableFormat::Xlsx})
            EXPECT_THROW((void)saveTable(large, path("t"), format, {}), TableExportError) << isTemporaryFull;
        EXPECT_TRUE(QDir(folder.path()).isEmpty());
    }
    qputenv("TMPDIR", temporary);
    Mount::undo(folder.path());
}

/// The library's own temporary files, where they do not fit, lose rows without a word.
TEST_F(TableExport, aWorkbookIsWholeOrThereIsNone)
{
    if (!Mount::smallDisk(folder.path()))
        GTEST_SKIP() << "no small disk can be mounted here";
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder.path().toUtf8());
    const QTemporaryDir elsewhere(QStringLiteral("/tmp/lorvan-XXXXXX"));
    int refused = 0;
    for (int rows = 250; rows < 2'500; rows += 250) {
        const QString target = elsewhere.filePath(QString::number(rows));
        try {
            ASSERT_TRUE(saveTable(cheques(rows), target, TableFormat::Xlsx, {}));
            EXPECT_GE(partOf(target, QStringLiteral("xl/worksheets/sheet1.xml")).count("</row>"), rows);
        } catch (const TableExportError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 0);
    qputenv("TMPDIR", temporary);
    Mount::undo(folder.path());
}

TEST(WorkbookProof, everyPartMustBeWhole)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("w.xlsx"));
    const QByteArray sheet = "<worksheet><row></row><row></row></worksheet>";
    const struct {
        QByteArray types;
        QByteArray sheet;
        bool whole;
    } cases[]{{"<Types/>", sheet, true}, {"", sheet, false}, {"<Types><Default/>", sheet, false},
        {"<Types/>", sheet.chopped(3), false}, {"<Types/>", QByteArray(sheet).replace("<row></row><", "<"), false}};
    for (const auto& each : cases) {
        writeZip(path, {{"[Content_Types].xml", each.types}, {"xl/worksheets/sheet1.xml", each.sheet}});
        if (each.whole)
            EXPECT_NO_THROW(proveWorkbook(path, {2}));
        else
            EXPECT_THROW(proveWorkbook(path, {2}), TableExportError)
                << each.types.toStdString() << each.sheet.toStdString();
    }
    writeZip(path, {{"[Content_Types].xml", "<Types/>"}});
    EXPECT_THROW(proveWorkbook(path, {2}), TableExportError) << "no sheet";
    writeZip(path, {{"[Content_Types].xml", "<Types/>"}, {"xl/worksheets/sheet1.xml", sheet}});
    QByteArray bytes = contentOf(path);
    bytes[bytes.indexOf("<Types/>") + 1] = 't';
    QFile(path).remove();
    QFile damaged(path);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write(bytes) == bytes.size());
    damaged.close();
    EXPECT_THROW(proveWorkbook(path, {2}), TableExportError) << "another checksum";
}

TEST_F(TableExport, moreRowsThanASheetHolds)
{
    ReportDocument large;
    for (int row = 0; row <= 1'048'576; ++row)
        large.AddTableRow(QStringLiteral("1000"), QString(), {u"α"});
    EXPECT_THROW((void)saveTable(large, path("t.xlsx"), TableFormat::Xlsx, {}), TableExportError);
}

} // namespace lorvan::test
