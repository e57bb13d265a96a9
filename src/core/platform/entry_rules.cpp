#include "platform/entry_rules.h"

#include "platform/amount_text.h"

#include <limits>

namespace lorvan {
namespace {

constexpr QChar euroSign = u'€'; // code 128 of the 8-bit code page

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

std::optional<QChar> dateCharacter(QChar typed)
{
    if (isDigit(typed) || typed == u',')
        return typed;
    return typed >= u' ' && typed <= u'/' ? std::optional<QChar>(u'-') : std::nullopt;
}

std::optional<qint32> wholeCode(Currency number)
{
    const std::int64_t units = number.tenThousandths();
    const std::int64_t whole = units / Currency::unitsPerEuro;
    if (units % Currency::unitsPerEuro != 0 || whole < std::numeric_limits<qint32>::min()
        || whole > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return static_cast<qint32>(whole);
}

} // namespace

std::optional<QChar> typedCharacter(TypingRule rule, QChar typed)
{
    switch (rule) {
    case TypingRule::Any:
        return typed;
    case TypingRule::Capitals:
        return typed.toUpper();
    case TypingRule::Date:
        return dateCharacter(typed);
    case TypingRule::Amount:
        return isDigit(typed) ? typed : u',';
    case TypingRule::OpeningDate:
        return isDigit(typed) || typed == euroSign ? typed : u'-';
    case TypingRule::OpeningAmount:
        return isDigit(typed) || typed == u'-' || typed == euroSign ? typed : u',';
    }
    return typed;
}

QString typedText(TypingRule rule, const QString& typed)
{
    QString text;
    for (const QChar c : typed) {
        if (const auto mapped = typedCharacter(rule, c))
            text += *mapped;
    }
    return text;
}

ChooserReading readChooser(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {ChooserReading::Kind::Empty, {}};
    const AmountReading number = readAmount(trimmed.section(u' ', 0, 0));
    switch (number.outcome) {
    case AmountReading::Outcome::NotANumber:
        return {ChooserReading::Kind::NotANumber, {}};
    case AmountReading::Outcome::OutOfRange:
        return {ChooserReading::Kind::Number, {}};
    case AmountReading::Outcome::Amount:
        break;
    }
    return {ChooserReading::Kind::Number, wholeCode(number.amount)};
}

} // namespace lorvan
