#include "csv/csv_reader.h"
#include "csv/csv_values.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

/// Every row as "line:field|field"; quoted fields in brackets, faults as "line!".
std::string read(QByteArray content)
{
    QBuffer file(&content);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file);
    std::string rows;
    CsvRow row;
    while (reader.read(row)) {
        rows += std::to_string(row.line) + (row.fault.isEmpty() ? ":" : "!");
        for (std::size_t i = 0; row.fault.isEmpty() && i < row.fields.size(); ++i) {
            const std::string text = row.fields[i].bytes.toStdString();
            rows += (i == 0 ? "" : "|") + (row.fields[i].isQuoted ? '[' + text + ']' : text);
        }
        rows += ' ';
    }
    return rows;
}

template <typename Read> std::string outcomeOf(Read read, const char* text)
{
    try {
        return read(text);
    } catch (const CsvValueError& error) {
        return error.what();
    }
}

} // namespace

TEST(CsvReader, dividesRowsAndTellsTheLineOfEach)
{
    const std::pair<QByteArray, const char*> cases[] = {
        {"a,b\n1,2\n", "1:a|b 2:1|2 "},
        {"\xEF\xBB\xBF"
         "a;b\r\n1;2,5\r\n",
            "1:a|b 2:1|2,5 "},
        {"a\tb\n1\t2", "1:a|b 2:1|2 "},
        {"a,b\n\n\r\n1,\n", "1:a|b 4:1| "},
        {"a,b\n\"x\ny\",\"\"\nz,\"a\"\"b,\"\n", "1:a|b 2:[x\ny]|[] 4:z|[a\"b,] "},
        {"a,b\n1,2\"3\n4,5\n", "1:a|b 2! 3:4|5 "},
        {"a,b\n\"1\"2,3\n4,5\n", "1:a|b 2! 3:4|5 "},
        {"a,b\n1,\"2\n3,4\n", "1:a|b 2! "},
        {"a,b\r1,2\r", "1:a|b 1:1|2 "},
        {"", ""},
    };
    for (const auto& [content, rows] : cases)
        EXPECT_EQ(read(content), rows) << content.toStdString();
    EXPECT_EQ(read("a\n\"" + QByteArray(3 * CsvReader::longestField, 'x') + "\"\n2\n"), "1:a 2! ");
    EXPECT_EQ(read("a\n" + QByteArray(5'000'000, ',') + "\n2\n"), "1:a 2! 3:2 ");
    for (int length = 65'520; length < 65'540; ++length) { // wherever a piece of the file ends
        const QByteArray text(length, 'x');
        EXPECT_EQ(read("a,b\n" + text + ",\"y\"\"z\"\r\n1,2\n"), "1:a|b 2:" + text.toStdString() + "|[y\"z] 3:1|2 ");
    }
    const QByteArray wide = QByteArray(CsvReader::longestField / 2, 'x') + ',';
    EXPECT_EQ(read("a\n" + wide.repeated(40) + "\n2\n"), "1:a 2! 3:2 ");
}

TEST(CsvValues, areExactBothWaysAndRefuseWhatCouldMeanTwoThings)
{
    const std::pair<std::int64_t, const char*> amounts[] = {{0, "0.00"}, {12'345'600, "1234.56"}, {1, "0.0001"},
        {-5'000, "-0.50"}, {12'340, "1.2340"}, {INT64_MAX, "922337203685477.5807"},
        {INT64_MIN, "-922337203685477.5808"}};
    for (const auto& [units, text] : amounts) {
        EXPECT_EQ(csvAmount(Currency::fromTenThousandths(units)), text);
        EXPECT_EQ(amountFromCsv(text).tenThousandths(), units);
    }
    EXPECT_EQ(amountFromCsv("1234.5").tenThousandths(), 12'345'000);
    EXPECT_EQ(amountFromCsv("7").tenThousandths(), 70'000);
    const auto amount = [](const char* text) { return csvAmount(amountFromCsv(text)).toStdString(); };
    const std::pair<const char*, const char*> refused[] = {{"1.234,56", "τελεία"}, {"12,5", "τελεία"},
        {"1.234", "δύο τρόπους"}, {"1.23456", "τέσσερα"}, {"922337203685477.5808", "μεγαλύτερο"}, {"+1", "τελεία"},
        {"1.", "τελεία"}, {".5", "τελεία"}, {"1e3", "τελεία"}, {"-", "τελεία"}, {"1.-5", "τελεία"}, {"€5", "τελεία"}};
    for (const auto& [text, reason] : refused)
        EXPECT_NE(outcomeOf(amount, text).find(reason), std::string::npos) << text;

    EXPECT_EQ(csvDate(20240229), "2024-02-29");
    EXPECT_EQ(csvDate(20230229), "20230229"); // what is no date stays to be seen
    EXPECT_EQ(dateFromCsv("2024-02-29"), QDate(2024, 2, 29));
    for (const char* const text : {"2023-02-29", "2024/02/29", "2024-2-29", "20240229", "2024-02-2a", ""})
        EXPECT_THROW((void)dateFromCsv(text), CsvValueError) << text;
    for (const char* const text : {"", "1.0", "2147483648", "0x10", "+1", "1 2"})
        EXPECT_THROW((void)numberFromCsv(text), CsvValueError) << text;
    EXPECT_THROW((void)flagFromCsv("2"), CsvValueError);
    EXPECT_THROW((void)textFromCsv("\xE1\xE2"), CsvValueError);
}

} // namespace lorvan::test
