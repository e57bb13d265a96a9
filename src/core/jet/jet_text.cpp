#include "jet/jet_text.h"

namespace lorvan {
namespace {

constexpr QByteArrayView compressedMark("\xFF\xFE", 2);

QString withoutLoneSurrogates(QString text)
{
    if (!QStringView(text).isValidUtf16())
        throw JetError(QStringLiteral("το κείμενο έχει μισό χαρακτήρα (surrogate χωρίς το ταίρι του)"));
    return text;
}

char16_t wideCharacter(const JetBytes& bytes, std::uint64_t at)
{
    if (bytes.size() - at < 2)
        throw JetError(QStringLiteral("το κείμενο τελειώνει σε μισό χαρακτήρα"));
    return bytes.u16(at);
}

/// One byte per character below 256, or two bytes per character; a zero byte in place of a character switches.
QString expand(const JetBytes& bytes)
{
    QString text;
    bool wide = false;
    for (std::uint64_t at = 0; at < bytes.size();) {
        if (bytes.u8(at) == 0) {
            wide = !wide;
            ++at;
        } else if (wide) {
            text += QChar(wideCharacter(bytes, at));
            at += 2;
        } else {
            text += QChar(bytes.u8(at));
            ++at;
        }
    }
    return text;
}

} // namespace

QString decodePlainText(const JetBytes& bytes)
{
    QString text;
    for (std::uint64_t at = 0; at < bytes.size(); at += 2)
        text += QChar(wideCharacter(bytes, at));
    return withoutLoneSurrogates(text);
}

QString decodeText(const JetBytes& bytes)
{
    if (!bytes.view().startsWith(compressedMark))
        return decodePlainText(bytes);
    return withoutLoneSurrogates(expand(bytes.from(2)));
}

} // namespace lorvan
