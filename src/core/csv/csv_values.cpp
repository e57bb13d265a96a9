#include "csv/csv_values.h"

#include "platform/date_text.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <limits>

namespace lorvan {
namespace {

constexpr std::uint64_t units = Currency::unitsPerEuro;
constexpr std::uint64_t unitsPerCent = Currency::unitsPerCent;
constexpr qsizetype centDecimals = 2;
constexpr qsizetype mostDecimals = 4;

bool areDigits(QByteArrayView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Integer part and decimals are digits. No value if the amount is out of the range of Currency.
std::optional<Currency> amountOf(bool isNegative, QByteArrayView whole, QByteArrayView decimals)
{
    QVarLengthArray<char, 32> text;
    if (isNegative)
        text.append('-');
    text.append(whole.data(), whole.size());
    text.append(decimals.data(), decimals.size());
    text.resize(text.size() + mostDecimals - decimals.size(), '0');
    std::int64_t count = 0;
    const auto read = std::from_chars(text.begin(), text.end(), count);
    return read.ec == std::errc() ? std::optional(Currency::fromTenThousandths(count)) : std::nullopt;
}

} // namespace

CsvValueError::CsvValueError(const QString& reason)
    : std::runtime_error(reason.toStdString())
{
}

QByteArray csvAmount(Currency amount)
{
    const std::int64_t count = amount.tenThousandths();
    const std::uint64_t size = count < 0 ? -static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    const std::uint64_t part = size % units;
    const bool isWholeCents = part % unitsPerCent == 0;
    const QByteArray decimals = QByteArray::number(isWholeCents ? part / unitsPerCent : part)
                                    .rightJustified(isWholeCents ? centDecimals : mostDecimals, '0');
    return (count < 0 ? "-" : "") + QByteArray::number(size / units) + '.' + decimals;
}

Currency amountFromCsv(const QByteArray& text)
{
    const bool isNegative = text.startsWith('-');
    const QByteArrayView size = QByteArrayView(text).sliced(isNegative ? 1 : 0);
    const qsizetype point = size.indexOf('.');
    const QByteArrayView whole = size.first(point < 0 ? size.size() : point);
    const QByteArrayView decimals = point < 0 ? QByteArrayView() : size.sliced(point + 1);
    if (!areDigits(whole) || (point >= 0 && !areDigits(decimals)))
        throw CsvValueError(QStringLiteral("το «%1» δεν είναι ποσό· τα ποσά γράφονται με τελεία για τα δεκαδικά και"
                                           " χωρίς διαχωριστικό χιλιάδων, όπως 1234.56")
                                .arg(QString::fromUtf8(text)));
    if (decimals.size() == 3)
        throw CsvValueError(QStringLiteral("το ποσό «%1» διαβάζεται με δύο τρόπους· γράψτε το με δύο ή τέσσερα"
                                           " δεκαδικά")
                                .arg(QString::fromLatin1(text)));
    if (decimals.size() > mostDecimals)
        throw CsvValueError(
            QStringLiteral("το ποσό «%1» έχει πάνω από τέσσερα δεκαδικά").arg(QString::fromLatin1(text)));
    const auto amount = amountOf(isNegative, whole, decimals);
    if (!amount)
        throw CsvValueError(QStringLiteral("το ποσό «%1» είναι μεγαλύτερο από όσο μπορεί να κρατήσει το ταμείο")
                                .arg(QString::fromLatin1(text)));
    return *amount;
}

QByteArray csvDate(std::int64_t stored)
{
    const QDate date = dateFromStored(stored);
    return date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd")).toLatin1() : QByteArray::number(stored);
}

QDate dateFromCsv(const QByteArray& text)
{
    const QByteArrayView view(text);
    const bool hasForm = view.size() == 10 && view[4] == '-' && view[7] == '-' && areDigits(view.first(4))
        && areDigits(view.sliced(5, 2)) && areDigits(view.sliced(8));
    const QDate date =
        hasForm ? QDate(view.first(4).toInt(), view.sliced(5, 2).toInt(), view.sliced(8).toInt()) : QDate();
    if (!date.isValid())
        throw CsvValueError(
            QStringLiteral("το «%1» δεν είναι ημερομηνία· οι ημερομηνίες γράφονται έτος-μήνας-ημέρα, όπως 2026-11-23")
                .arg(QString::fromUtf8(text)));
    return date;
}

QByteArray csvText(const QString& text)
{
    const auto isSpecial = [](QChar c) { return c == u',' || c == u';' || c == u'"' || c == u'\n' || c == u'\r'; };
    const bool needsQuotes = text.isEmpty() || text.front().isSpace() || text.back().isSpace()
        || std::any_of(text.begin(), text.end(), isSpecial);
    return needsQuotes ? '"' + text.toUtf8().replace('"', "\"\"") + '"' : text.toUtf8();
}

QString textFromCsv(const QByteArray& text)
{
    if (!text.isValidUtf8())
        throw CsvValueError(QStringLiteral("δεν είναι κείμενο UTF-8"));
    if (text.contains('\0'))
        throw CsvValueError(QStringLiteral("περιέχει χαρακτήρα NUL"));
    return QString::fromUtf8(text);
}

qint32 numberFromCsv(const QByteArray& text)
{
    bool fits = false;
    const qint32 number = text.toInt(&fits);
    if (!fits || text != QByteArray::number(number))
        throw CsvValueError(QStringLiteral("το «%1» δεν είναι ακέραιος αριθμός").arg(QString::fromUtf8(text)));
    return number;
}

bool flagFromCsv(const QByteArray& text)
{
    if (text != "0" && text != "1" && text != "-1")
        throw CsvValueError(QStringLiteral("το «%1» δεν είναι 0 (όχι) ή 1 (ναι)").arg(QString::fromUtf8(text)));
    return text != "0";
}

} // namespace lorvan
