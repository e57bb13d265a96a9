#include "movements/amount_tape.h"

#include "platform/amount_text.h"

#include <QStringList>

#include <algorithm>

namespace lorvan {
namespace {

constexpr QChar longMinus(0x2212);

/// The sign may stand apart from its amount.
TapeLine readLine(const QString& line)
{
    QString text = line.trimmed();
    if (text.isEmpty())
        return {};
    if (text.front() == longMinus)
        text.front() = u'-';
    if (text.front() == u'-' || text.front() == u'+')
        text = text.front() + text.mid(1).trimmed();
    const AmountReading reading = readAmount(text, Precision::Cents);
    if (reading)
        return {TapeLine::Kind::Amount, reading.amount};
    const bool isTooLarge = reading.outcome == AmountReading::Outcome::OutOfRange;
    return {isTooLarge ? TapeLine::Kind::OutOfRange : TapeLine::Kind::NotANumber};
}

} // namespace

int Tape::firstWrong() const
{
    const auto wrong = std::find_if(lines.begin(), lines.end(), [](const TapeLine& each) { return each.isWrong(); });
    return wrong == lines.end() ? -1 : static_cast<int>(std::distance(lines.begin(), wrong));
}

Tape readTape(const QString& text)
{
    Tape tape;
    for (const QString& line : text.split(u'\n'))
        tape.lines.push_back(readLine(line));
    try {
        for (const TapeLine& line : tape.lines)
            tape.sum += line.amount;
    } catch (const CurrencyOverflow&) {
        tape.sum = {};
        tape.overflows = true;
    }
    return tape;
}

QString tapeRefusal(const Tape& tape)
{
    if (const int wrong = tape.firstWrong(); wrong >= 0) {
        const bool isTooLarge = tape.lines[static_cast<std::size_t>(wrong)].kind == TapeLine::Kind::OutOfRange;
        return (isTooLarge ? QStringLiteral("Το ποσό της γραμμής %1 είναι πολύ μεγάλο.")
                           : QStringLiteral("Η γραμμή %1 δεν είναι ποσό."))
            .arg(wrong + 1);
    }
    if (tape.overflows)
        return QStringLiteral("Το άθροισμα είναι πολύ μεγάλο.");
    return tape.sum < Currency() ? QStringLiteral("Το άθροισμα είναι αρνητικό και δεν μπαίνει σε ποσό.") : QString();
}

} // namespace lorvan
