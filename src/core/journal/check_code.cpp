#include "journal/check_code.h"

#include <QByteArray>

#include <cstdint>

namespace lorvan {
namespace {

constexpr auto alphabet = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr int letters = 10;
constexpr int bitsOfLetter = 5;
constexpr int bitsOfByte = 8;

QString grouped(const QString& code)
{
    return QStringLiteral("%1-%2-%3").arg(code.left(4), code.mid(4, 4), code.mid(8));
}

QChar meant(QChar typed)
{
    static const QString lookalikes = QStringLiteral("ILOΑΒΕΖΗΙΚΜΝΟΡΤΥΧ");
    static const QString codeLetters = QStringLiteral("110ABEZH1KMN0PTYX");
    const qsizetype place = lookalikes.indexOf(typed);
    return place < 0 ? typed : codeLetters[place];
}

} // namespace

QString checkCode(const QString& hash)
{
    constexpr int bytes = 32;
    const QByteArray digest = QByteArray::fromHex(hash.toLatin1());
    if (digest.size() != bytes)
        return {};
    QString code;
    for (int bit = 0; bit < letters * bitsOfLetter; bit += bitsOfLetter) {
        const auto byteAt = [&](int place) { return static_cast<std::uint8_t>(digest[place]); };
        const int place = bit / bitsOfByte;
        const int both = byteAt(place) << bitsOfByte | byteAt(place + 1);
        const int shift = 2 * bitsOfByte - bitsOfLetter - bit % bitsOfByte;
        code += QLatin1Char(alphabet[both >> shift & 31]);
    }
    return grouped(code);
}

QString hashBeginning(const QString& code)
{
    constexpr int digits = 12;
    constexpr int bitsOfDigit = 4;
    std::uint64_t bits = 0;
    for (const QChar each : code) {
        if (const qsizetype value = QLatin1String(alphabet).indexOf(each); value >= 0)
            bits = bits << bitsOfLetter | static_cast<std::uint64_t>(value);
    }
    bits >>= letters * bitsOfLetter - digits * bitsOfDigit;
    return QString::number(bits, 16).rightJustified(digits, u'0');
}

QString readCheckCode(const QString& typed)
{
    static const QString known = QLatin1String(alphabet);
    QString code;
    for (const QChar each : typed.toUpper()) {
        if (each.isSpace() || each == u'-')
            continue;
        const QChar letter = meant(each);
        if (!known.contains(letter))
            return {};
        code += letter;
    }
    return code.size() == letters ? grouped(code) : QString();
}

} // namespace lorvan
