#include "platform/printable_text.h"

#include <algorithm>

namespace lorvan {
namespace {

bool turnsDirection(char16_t unit)
{
    return unit == 0x061C || unit == 0x200E || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E)
        || (unit >= 0x2066 && unit <= 0x2069);
}

bool isHidden(QChar each, Breaks breaks)
{
    if (breaks == Breaks::Keep && (each == u'\n' || each == u'\t'))
        return false;
    return each.category() == QChar::Other_Control || turnsDirection(each.unicode());
}

QString shownAs(QChar each)
{
    const int unit = each.unicode();
    return unit > 0xFF ? QStringLiteral("\\u{%1}").arg(unit, 4, 16, QChar(u'0'))
                       : QStringLiteral("\\x%1").arg(unit, 2, 16, QChar(u'0'));
}

} // namespace

QString printable(const QString& text, Breaks breaks)
{
    const auto hidden = [breaks](QChar each) { return isHidden(each, breaks); };
    if (std::none_of(text.begin(), text.end(), hidden))
        return text;
    QString shown;
    for (const QChar each : text)
        shown += hidden(each) ? shownAs(each) : QString(each);
    return shown;
}

QString printableName(const QString& name)
{
    constexpr qsizetype most = 100;
    QString shown;
    for (const QChar character : name.first(std::min(most, name.size()))) {
        const bool isPlain = character.isPrint() || character.isSurrogate();
        shown += isPlain ? QString(character) : QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QChar(u'0'));
    }
    return name.size() > most ? shown + u'…' : shown;
}

} // namespace lorvan
