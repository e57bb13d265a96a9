#include "platform/folded_text.h"

#include <QChar>
#include <QString>

#include <array>

namespace lorvan {

namespace {

constexpr char16_t lastInTable = 0x1fff; // no character above it has an accent that people type
constexpr char16_t replacement = 0xfffd;

char16_t computeFolded(char16_t character)
{
    QChar folded(character);
    while (folded.decompositionTag() == QChar::Canonical)
        folded = folded.decomposition().front();
    return folded.toCaseFolded().unicode();
}

const auto& foldings()
{
    static const auto table = [] {
        std::array<char16_t, lastInTable + 1> all{};
        for (char16_t each = 0; each <= lastInTable; ++each)
            all[each] = computeFolded(each);
        return all;
    }();
    return table;
}

bool isCombining(char16_t character)
{
    return character >= 0x300 && character <= 0x36f;
}

/// What follows in one, two or three bytes, up to U+FFFF, if it is well formed.
struct Decoded {
    char16_t character = replacement;
    std::size_t size = 1;
};

bool isFollowing(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80;
}

Decoded decodeLonger(std::string_view text)
{
    const auto bits = [text](
                          std::size_t place, unsigned mask) { return static_cast<unsigned char>(text[place]) & mask; };
    const bool isTwo = text.size() > 1 && bits(0, 0xe0) == 0xc0 && isFollowing(text[1]);
    if (isTwo)
        return {static_cast<char16_t>(bits(0, 0x1f) << 6 | bits(1, 0x3f)), 2};
    const bool isThree = text.size() > 2 && bits(0, 0xf0) == 0xe0 && isFollowing(text[1]) && isFollowing(text[2]);
    if (isThree)
        return {static_cast<char16_t>(bits(0, 0x0f) << 12 | bits(1, 0x3f) << 6 | bits(2, 0x3f)), 3};
    return {};
}

/// Characters above U+FFFF are rare, and folding leaves them as they are.
std::size_t appendRare(std::string_view text, char16_t*& end)
{
    const bool isFour = text.size() > 3 && (static_cast<unsigned char>(text[0]) & 0xf8U) == 0xf0;
    const QString character = isFour ? QString::fromUtf8(text.data(), 4) : QString();
    if (character.size() != 2) {
        *end++ = replacement;
        return 1;
    }
    for (const QChar half : character)
        *end++ = half.unicode();
    return 4;
}

} // namespace

char16_t foldedLetter(char16_t letter)
{
    return letter <= lastInTable ? foldings()[letter] : computeFolded(letter);
}

void foldUtf8(std::string_view text, std::u16string& folded)
{
    const auto& table = foldings();
    folded.resize(text.size()); // a byte never yields more than one
    char16_t* end = folded.data();
    for (std::size_t place = 0; place < text.size();) {
        const auto byte = static_cast<unsigned char>(text[place]);
        if (byte < 0x80) {
            *end++ = table[byte];
            ++place;
            continue;
        }
        const Decoded next = decodeLonger(text.substr(place));
        if (next.size == 1) {
            place += appendRare(text.substr(place), end);
            continue;
        }
        place += next.size;
        if (!isCombining(next.character))
            *end++ = next.character <= lastInTable ? table[next.character] : computeFolded(next.character);
    }
    folded.resize(static_cast<std::size_t>(end - folded.data()));
}

} // namespace lorvan
