#include "jet/jet_text.h"
#include "jet/jet_value.h"
#include "legacy/legacy_amount.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

namespace lorvan::test {
namespace {

/// What `work` answers; the empty text when it throws JetError.
template <typename Work> QString orRefused(const Work& work)
{
    try {
        return work();
    } catch (const JetError&) {
        return {};
    }
}

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

QString text(const char* digits)
{
    const QByteArray bytes = hex(digits);
    return orRefused([&] { return u'[' + decodeText(JetBytes(bytes)) + u']'; });
}

QString amount(LegacyAmount read)
{
    return QString::number(read.amount.tenThousandths()) + (read.isWholeCents ? u'c' : u'f');
}

QString textOf(const JetValue& value)
{
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return QString::number(*number);
    if (const auto* money = std::get_if<JetMoney>(&value))
        return QString::number(money->tenThousandths) + u'm';
    if (const auto* single = std::get_if<float>(&value))
        return QString::number(static_cast<double>(*single)) + u'f';
    if (const auto* twofold = std::get_if<double>(&value))
        return QString::number(*twofold) + u'd';
    if (const auto* time = std::get_if<QDateTime>(&value))
        return time->toString(Qt::ISODate);
    if (const auto* found = std::get_if<QString>(&value))
        return *found + QStringLiteral("");
    if (const auto* flag = std::get_if<bool>(&value))
        return QString::number(int(*flag));
    return QStringLiteral("NULL");
}

JetFile fileOfOnePage()
{
    QByteArray page(JetFile::pageSize, '\0');
    page.replace(4, 15, "Standard Jet DB").replace(0x14, 1, "\x01").replace(0x3E, 4, "\xFB\x8A\xBC\x4E");
    JetDamage damage(JetDamage::Answer::Refuse);
    return {QStringLiteral("x"), page, damage};
}

JetDefinition definitionOf(std::vector<JetColumn> columns, int columnsEver)
{
    return {2, 0, columnsEver, {0, 0}, std::move(columns)};
}

} // namespace

TEST(JetText, expandsAndRefuses)
{
    const QString refused;
    const struct {
        const char* bytes;
        QString text;
    } cases[] = {
        {"", QStringLiteral("[]")},
        {"fffe", QStringLiteral("[]")},
        {"a403c503", QStringLiteral("[Τυ]")},
        {"fffe00a403c503002f31", QStringLiteral("[Τυ/1]")},
        {"fffe4142", QStringLiteral("[AB]")},
        {"fffeab20", QStringLiteral("[« ]")},
        {"fffe00a403200020000041", QStringLiteral("[Τ  A]")},
        {"fffe00a40300", QStringLiteral("[Τ]")},
        {"fffe000041", QStringLiteral("[A]")},
        {"3dd800de", QString::fromUtf8("[😀]")},
        {"fffe003dd800", refused}, // the second half would be narrow
        {"fffe003dd8", refused},
        {"3dd84100", refused},
        {"00de", refused},
        {"a403c5", refused},
        {"fffe00a403c5", refused},
        {"ff", refused},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(text(bytes), expected) << bytes << ' ' << text(bytes).toStdString();
}

TEST(JetDate, countsDaysForwardsAndRefusesWhatIsNone)
{
    const QString refused;
    const struct {
        double days;
        QString time;
    } cases[] = {
        {0, QStringLiteral("1899-12-30T00:00:00")},
        {36526, QStringLiteral("2000-01-01T00:00:00")},
        {36526.5, QStringLiteral("2000-01-01T12:00:00")},
        {-1.75, QStringLiteral("1899-12-29T18:00:00")},
        {-0.25, QStringLiteral("1899-12-30T06:00:00")},
        {36526.999999, QStringLiteral("2000-01-02T00:00:00")},
        {-1.999999, QStringLiteral("1899-12-30T00:00:00")},
        {36526.99998, QStringLiteral("2000-01-01T23:59:58")},
        {-657434, QStringLiteral("0100-01-01T00:00:00")},
        {-657434.5, QStringLiteral("0100-01-01T12:00:00")},
        {2958465.5, QStringLiteral("9999-12-31T12:00:00")},
        {2958465.999999, refused},
        {-657435, refused},
        {2958466, refused},
        {1e300, refused},
        {-1e300, refused},
        {std::numeric_limits<double>::quiet_NaN(), refused},
        {std::numeric_limits<double>::infinity(), refused},
    };
    for (const auto& [days, expected] : cases) {
        const QString read =
            orRefused([&] { return dateTimeOf(days).toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")); });
        EXPECT_EQ(read, expected) << days << ' ' << read.toStdString();
    }
}

TEST(LegacyAmount, isTheNearestCentWhereTheNumberCouldMeanIt)
{
    const struct {
        float single;
        const char* amount; ///< Ten-thousandths; c for whole cents, f for finer.
    } singles[] = {
        {0.0F, "0c"},
        {-0.0F, "0c"},
        {0.1F, "1000c"},
        {5338.68994140625F, "53386900c"},
        {-5338.68994140625F, "-53386900c"},
        {1234567.875F, "12345678800c"},
        {-1234567.875F, "-12345678800c"},
        {131072.015625F, "1310720200c"}, // cents are closer together than these numbers from here on
        {16777217.0F, "167772160000c"},
        {0.125F, "1250f"},
        {5338.6904296875F, "53386904f"}, // the next number above the one that stands for 5338.69
        {2.00005F, "20001f"}, // 2.000050067901611328125
        {1e-10F, "0f"},
        {1e-45F, "0f"},
        {922337180385280.0F, "9223371803852800000c"},
        {922337247494144.0F, ""}, // the next one, and the first that is too large
        {1e30F, ""},
        {-3e38F, ""},
    };
    for (const auto& [single, expected] : singles)
        EXPECT_EQ(orRefused([&, number = single] { return amount(legacyAmount(number)); }).toStdString(), expected)
            << single;
    const struct {
        double number;
        const char* amount;
    } doubles[] = {
        {0.1, "1000c"},
        {5338.69, "53386900c"},
        {5338.68994140625, "53386899f"},
        {1234567.875, "12345678750f"},
        {0.00005, "1f"},
        {90071992547409.9375, "900719925474099400c"},
        {5e-324, "0f"},
        {922337203685477.5, "9223372036854775000c"},
        {922337203685478, ""},
        {1e300, ""},
    };
    for (const auto& [number, expected] : doubles)
        EXPECT_EQ(orRefused([&, each = number] { return amount(legacyAmount(each)); }).toStdString(), expected)
            << number;
}

TEST(JetRow, splitsByTheRowsOwnCountOfColumns)
{
    const JetDefinition definition =
        definitionOf({{QStringLiteral("id"), JetKind::Long, 0, true, false, 0, 0, 4},
                         {QStringLiteral("a"), JetKind::Text, 1, false, false, 0, 0, 50},
                         {QStringLiteral("b"), JetKind::Text, 2, false, false, 1, 0, 50},
                         {QStringLiteral("flag"), JetKind::Boolean, 3, true, false, 0, 0, 1}},
            4);
    const struct {
        const char* bytes;
        const char* values; ///< Of the four columns; "!" where the value is refused, all of it where the row is.
    } cases[] = {
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
    const JetFile file = fileOfOnePage();
    for (const auto& [bytes, expected] : cases) {
        const QByteArray content = hex(bytes);
        QStringList values;
        const QString splits = orRefused([&] {
            const JetRow row(JetBytes(content), definition);
            for (const JetColumn& column : definition.columns) {
                const QString value = orRefused([&] { return textOf(valueOf(file, row, column)); });
                values += value.isNull() ? QStringLiteral("!") : value;
            }
            return QStringLiteral("split");
        });
        EXPECT_EQ(splits.isEmpty() ? std::string("!") : values.join(u'|').toStdString(), expected) << bytes;
    }
}

TEST(JetValue, isReadByKindAndRefusedWhereItIsNone)
{
    const struct {
        int kind;
        const char* bytes;
        const char* value; ///< Empty where it is refused.
    } cases[] = {
        {2, "ff", "255"},
        {3, "feff", "-2"},
        {4, "feffffff", "-2"},
        {4, "feff", ""},
        {5, "f0d8ffffffffffff", "-10000m"},
        {6, "0000c03f", "1.5f"},
        {6, "0000c07f", ""},
        {6, "000080ff", ""},
        {7, "000000000000f8bf", "-1.5d"},
        {7, "000000000000f07f", ""},
        {8, "000000000000fcbf", "1899-12-29T18:00:00Z"},
        {8, "000000000000f87f", ""},
        {9, "00", ""},
        {16, "00000000000000000000000000000000", ""},
        {12, "04000080 00000000 00000000 fffe4142", "AB"},
        {12, "05000080 00000000 00000000 fffe4142", ""}, // longer than the row
        {12, "04000000 00000000 00000000 fffe4142", ""}, // a chain
        {12, "04000040 00010000 00000000", ""}, // on a page that is not there
        {12, "04000080 00000000", ""},
    };
    const JetFile file = fileOfOnePage();
    for (const auto& [kind, bytes, expected] : cases) {
        const QByteArray value = hex(bytes);
        const auto end = static_cast<char>(2 + value.size());
        const QByteArray content = hex("0100") + value + end + hex("00 0200 0100 01");
        const JetDefinition definition =
            definitionOf({{QStringLiteral("a"), static_cast<JetKind>(kind), 0, false, false, 0, 0, 0}}, 1);
        const QString read = orRefused(
            [&] { return textOf(valueOf(file, JetRow(JetBytes(content), definition), definition.columns[0])); });
        EXPECT_EQ(read.toStdString(), expected) << kind << ' ' << bytes;
    }
}

} // namespace lorvan::test
