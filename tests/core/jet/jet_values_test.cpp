#include "jet/jet_text.h"
#include "jet/jet_value.h"
#include "legacy/legacy_amount.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

namespace lorvan::test {
namespace {

/// What `work` answers; "!" when it throws JetError.
template <typename Work> std::string orRefused(const Work& work)
{
    try {
        return QString(work()).toStdString();
    } catch (const JetError&) {
        return "!";
    }
}

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

struct ValueText {
    QString operator()(std::monostate) const { return "NULL"; }
    QString operator()(bool flag) const { return QString::number(int(flag)); }
    QString operator()(std::int32_t number) const { return QString::number(number); }
    QString operator()(JetMoney money) const { return QString::number(money.tenThousandths) + u'm'; }
    QString operator()(float number) const { return QString::number(static_cast<double>(number)) + u'f'; }
    QString operator()(double number) const { return QString::number(number) + u'd'; }
    QString operator()(const QDateTime& time) const { return time.toString(Qt::ISODate); }
    QString operator()(const QString& text) const { return text; }
};

JetFile fileOfOnePage()
{
    QByteArray page(JetFile::pageSize, '\0');
    page.replace(4, 15, "Standard Jet DB").replace(0x14, 1, "\x01").replace(0x3E, 4, "\xFB\x8A\xBC\x4E");
    JetDamage damage(JetDamage::Answer::Refuse);
    return {"x", page, damage};
}

/// The values of a row's columns; "!" for one that is refused, and alone where the row is.
std::string valuesIn(const QByteArray& bytes, const std::vector<JetColumn>& columns)
{
    static const JetFile file = fileOfOnePage();
    const JetDefinition definition{2, 0, static_cast<int>(columns.size()), {0, 0}, columns};
    return orRefused([&] {
        const JetRow row(JetBytes(bytes), definition);
        QStringList values;
        for (const JetColumn& column : columns)
            values +=
                QString::fromStdString(orRefused([&] { return std::visit(ValueText(), valueOf(file, row, column)); }));
        return values.join(u'|');
    });
}

} // namespace

TEST(JetText, expandsAndRefuses)
{
    const std::pair<const char*, const char*> cases[] = {{"", ""}, {"fffe", ""}, {"a403c503", "Τυ"},
        {"fffe00a403c503002f31", "Τυ/1"}, {"fffe4142", "AB"}, {"fffeab20", "« "}, {"fffe00a403200020000041", "Τ  A"},
        {"fffe00a40300", "Τ"}, {"fffe000041", "A"}, {"3dd800de", "😀"},
        {"fffe003dd800", "!"}, // the second half would be narrow
        {"fffe003dd8", "!"}, {"3dd84100", "!"}, {"00de", "!"}, {"a403c5", "!"}, {"fffe00a403c5", "!"}, {"ff", "!"}};
    for (const auto& [digits, text] : cases) {
        const QByteArray bytes = hex(digits);
        EXPECT_EQ(orRefused([&] { return decodeText(JetBytes(bytes)); }), text) << digits;
    }
}

TEST(JetDate, countsDaysForwardsAndRefusesWhatIsNone)
{
    const std::pair<double, const char*> cases[] = {{0, "1899-12-30 00:00:00"}, {36526, "2000-01-01 00:00:00"},
        {36526.5, "2000-01-01 12:00:00"}, {-1.75, "1899-12-29 18:00:00"}, {-0.25, "1899-12-30 06:00:00"},
        {36526.999999, "2000-01-02 00:00:00"}, {-1.999999, "1899-12-30 00:00:00"}, {36526.99998, "2000-01-01 23:59:58"},
        {-657434, "0100-01-01 00:00:00"}, {-657434.5, "0100-01-01 12:00:00"}, {2958465.5, "9999-12-31 12:00:00"},
        {2958465.999999, "!"}, {-657435, "!"}, {2958466, "!"}, {1e300, "!"}, {-1e300, "!"},
        {std::numeric_limits<double>::quiet_NaN(), "!"}, {std::numeric_limits<double>::infinity(), "!"}};
    for (const auto& [days, time] : cases) {
        const auto read = [number = days] { return dateTimeOf(number).toString("yyyy-MM-dd HH:mm:ss"); };
        EXPECT_EQ(orRefused(read), time) << days;
    }
}

TEST(LegacyAmount, isTheNearestCentWhereTheNumberCouldMeanIt)
{
    const auto read = [](auto number) {
        return orRefused([number] {
            const LegacyAmount amount = legacyAmount(number);
            return QString::number(amount.amount.tenThousandths()) + (amount.isWholeCents ? u'c' : u'f');
        });
    };
    // In ten-thousandths; c for whole cents, f for finer.
    const std::pair<float, const char*> singles[] = {{0.0F, "0c"}, {-0.0F, "0c"}, {0.1F, "1000c"},
        {5338.68994140625F, "53386900c"}, {-5338.68994140625F, "-53386900c"}, {1234567.875F, "12345678800c"},
        {-1234567.875F, "-12345678800c"},
        {131072.015625F, "1310720200c"}, // cents are closer together than these numbers from here on
        {16777217.0F, "167772160000c"}, {0.125F, "1250f"},
        {5338.6904296875F, "53386904f"}, // the next number above the one that stands for 5338.69
        {2.00005F, "20001f"}, // 2.000050067901611328125
        {1e-10F, "0f"}, {1e-45F, "0f"}, {922337180385280.0F, "9223371803852800000c"},
        {922337247494144.0F, "!"}, // the next one, and the first that is too large
        {1e30F, "!"}, {-3e38F, "!"}};
    for (const auto& [number, amount] : singles)
        EXPECT_EQ(read(number), amount) << number;
    const std::pair<double, const char*> doubles[] = {{0.1, "1000c"}, {5338.69, "53386900c"},
        {5338.68994140625, "53386899f"}, {1234567.875, "12345678750f"}, {0.00005, "1f"},
        {90071992547409.9375, "900719925474099400c"}, {5e-324, "0f"}, {922337203685477.5, "9223372036854775000c"},
        {922337203685478, "!"}, {1e300, "!"}};
    for (const auto& [number, amount] : doubles)
        EXPECT_EQ(read(number), amount) << number;
}

TEST(JetRow, splitsByTheRowsOwnCountOfColumns)
{
    const std::vector<JetColumn> columns{{"id", JetKind::Long, 0, true, false, 0, 0, 4},
        {"a", JetKind::Text, 1, false, false, 0, 0, 50}, {"b", JetKind::Text, 2, false, false, 1, 0, 50},
        {"flag", JetKind::Boolean, 3, true, false, 0, 0, 1}};
    const std::pair<const char*, const char*> cases[] = {
        {"0300 08000000 fffe56495341 0c00 0600 0600 0200 05", "8|NULL|VISA|0"},
        {"0400 08000000 fffe56495341 0c00 0600 0600 0200 0d", "8|NULL|VISA|1"},
        {"0300 08000000 fffe56495341 0c00 0600 0600 0200 07", "8||VISA|0"},
        {"0300 08000000 fffe56495341 0c00 0600 0600 0200 02", "NULL||NULL|0"},
        {"0100 08000000 01", "8|NULL|NULL|0"},
        {"0300 08000000 05", "8|NULL|!|0"}, // no variable values, but a bit for one
        {"0300 08000000 fffe56495341 0d00 0600 0600 0200 05", "8|NULL|!|0"}, // ends in the ends
        {"0300 08000000 fffe56495341 0c00 0d00 0600 0200 05", "8|NULL|!|0"}, // begins behind its end
        {"0300 08000000 fffe56495341 0c00 0100 0600 0200 05", "8|NULL|!|0"}, // begins in the count
        {"0300 08000000 fffe56495341 0c00 0600 0600 0900 05", "8|NULL|!|0"}, // more values than fit
        {"0100 080000 01", "!|NULL|NULL|0"},
        {"0500 08000000 01", "!"},
        {"0300", "!"},
        {"03", "!"},
        {"", "!"},
    };
    for (const auto& [bytes, values] : cases)
        EXPECT_EQ(valuesIn(hex(bytes), columns), values) << bytes;
}

TEST(JetValue, isReadByKindAndRefusedWhereItIsNone)
{
    const std::tuple<int, const char*, const char*> cases[] = {{2, "ff", "255"}, {3, "feff", "-2"},
        {4, "feffffff", "-2"}, {4, "feff", "!"}, {5, "f0d8ffffffffffff", "-10000m"}, {6, "0000c03f", "1.5f"},
        {6, "0000c07f", "!"}, {6, "000080ff", "!"}, {7, "000000000000f8bf", "-1.5d"}, {7, "000000000000f07f", "!"},
        {8, "000000000000fcbf", "1899-12-29T18:00:00Z"}, {8, "000000000000f87f", "!"}, {9, "00", "!"},
        {16, "00000000000000000000000000000000", "!"}, {12, "04000080 00000000 00000000 fffe4142", "AB"},
        {12, "05000080 00000000 00000000 fffe4142", "!"}, // longer than the row
        {12, "04000000 00000000 00000000 fffe4142", "!"}, // a chain
        {12, "04000040 00010000 00000000", "!"}, // on a page that is not there
        {12, "04000080 00000000", "!"}};
    for (const auto& [kind, bytes, expected] : cases) {
        const QByteArray value = hex(bytes);
        const QByteArray row = hex("0100") + value + static_cast<char>(2 + value.size()) + hex("00 0200 0100 01");
        EXPECT_EQ(valuesIn(row, {{"a", static_cast<JetKind>(kind), 0, false, false, 0, 0, 0}}), expected)
            << kind << ' ' << bytes;
    }
}

} // namespace lorvan::test
