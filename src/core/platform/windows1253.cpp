#include "platform/windows1253.h"

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

constexpr char16_t none = 0xFFFD;

// The upper half of the code page, 0x80 to 0xFF. Qt can convert it only if built with ICU, and even then it neither
// says which character failed nor guarantees one byte per character.
constexpr std::array<char16_t, 128> upperHalf = {
    0x20AC, none, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, none, 0x2030, none, 0x2039, none, none, none, none, //
    none, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, none, 0x2122, none, 0x203A, none, none, none, none, //
    0x00A0, 0x0385, 0x0386, 0x00A3, 0x00A4, 0x00A5, 0x00A6, 0x00A7, 0x00A8, 0x00A9, none, 0x00AB, 0x00AC, 0x00AD,
    0x00AE, 0x2015, //
    0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x0384, 0x00B5, 0x00B6, 0x00B7, 0x0388, 0x0389, 0x038A, 0x00BB, 0x038C, 0x00BD,
    0x038E, 0x038F, //
    0x0390, 0x0391, 0x0392, 0x0393, 0x0394, 0x0395, 0x0396, 0x0397, 0x0398, 0x0399, 0x039A, 0x039B, 0x039C, 0x039D,
    0x039E, 0x039F, //
    0x03A0, 0x03A1, none, 0x03A3, 0x03A4, 0x03A5, 0x03A6, 0x03A7, 0x03A8, 0x03A9, 0x03AA, 0x03AB, 0x03AC, 0x03AD,
    0x03AE, 0x03AF, //
    0x03B0, 0x03B1, 0x03B2, 0x03B3, 0x03B4, 0x03B5, 0x03B6, 0x03B7, 0x03B8, 0x03B9, 0x03BA, 0x03BB, 0x03BC, 0x03BD,
    0x03BE, 0x03BF, //
    0x03C0, 0x03C1, 0x03C2, 0x03C3, 0x03C4, 0x03C5, 0x03C6, 0x03C7, 0x03C8, 0x03C9, 0x03CA, 0x03CB, 0x03CC, 0x03CD,
    0x03CE, none, //
};

constexpr int noByte = -1;

int byteOf(char16_t character)
{
    if (character < 0x80)
        return character;
    const auto found = std::find(upperHalf.begin(), upperHalf.end(), character);
    return found == upperHalf.end() || character == none ? noByte : 0x80 + static_cast<int>(found - upperHalf.begin());
}

} // namespace

QByteArray toWindows1253(QStringView text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        if (c.isLowSurrogate())
            continue;
        const int byte = byteOf(c.unicode());
        bytes += byte == noByte ? '?' : static_cast<char>(byte);
    }
    return bytes;
}

bool fitsWindows1253(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return byteOf(c.unicode()) != noByte; });
}

QString fromWindows1253(QByteArrayView bytes)
{
    QString text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += QChar(byte < 0x80 ? char16_t(byte) : upperHalf[byte - 0x80]);
    }
    return text;
}

} // namespace lorvan
