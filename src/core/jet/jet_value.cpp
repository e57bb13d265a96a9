#include "jet/jet_value.h"

#include "jet/jet_data_page.h"
#include "jet/jet_text.h"

#include <cmath>

namespace lorvan {
namespace {

constexpr double firstDay = -657434; ///< 1 January 100.
constexpr double lastDay = 2958465; ///< 31 December 9999.
constexpr std::int64_t secondsPerDay = 86'400;

constexpr std::uint64_t longestText = 510;

constexpr std::uint32_t memoLengthBits = 0x3FFFFFFF;
constexpr std::uint32_t memoInPlace = 2;
constexpr std::uint32_t memoOnPage = 1;
constexpr std::uint64_t memoPointerOffset = 4;
constexpr std::uint64_t memoTextOffset = 12;

JetBytes ofWidth(const JetBytes& bytes, std::uint64_t width)
{
    if (bytes.size() != width)
        throw JetError(QStringLiteral("η τιμή έχει %1 byte αντί για %2").arg(bytes.size()).arg(width));
    return bytes;
}

template <typename Number> Number finite(Number number)
{
    if (!std::isfinite(number))
        throw JetError(QStringLiteral("ο αριθμός δεν είναι πεπερασμένος (%1)").arg(static_cast<double>(number)));
    return number;
}

QString textIn(const JetBytes& bytes)
{
    if (bytes.size() > longestText)
        throw JetError(
            QStringLiteral("το κείμενο έχει %1 byte, περισσότερα από %2").arg(bytes.size()).arg(longestText));
    return decodeText(bytes);
}

/// The bytes on a page for long values.
JetBytes longValue(const JetFile& file, JetRowPointer pointer)
{
    if (!JetDataPage(file, pointer.page).holdsLongValues())
        throw JetError(QStringLiteral("το κείμενο θα ήταν στη σελίδα %1, που δεν έχει κείμενα").arg(pointer.page));
    return bytesAt(file, pointer);
}

QString memoIn(const JetFile& file, const JetBytes& bytes)
{
    if (bytes.size() < memoTextOffset)
        throw JetError(
            QStringLiteral("το κείμενο έχει %1 byte, λιγότερα από %2").arg(bytes.size()).arg(memoTextOffset));
    const std::uint32_t word = bytes.u32(0);
    const std::uint32_t length = word & memoLengthBits;
    switch (word >> 30) {
    case memoInPlace:
        return decodeText(bytes.part(memoTextOffset, length));
    case memoOnPage:
        return decodeText(longValue(file, JetRowPointer::at(bytes, memoPointerOffset)).part(0, length));
    default:
        throw JetError(QStringLiteral("το κείμενο είναι πολύ μεγάλο"));
    }
}

} // namespace

QDateTime dateTimeOf(double days)
{
    if (!(days > firstDay - 1 && days < lastDay + 1)) // NaN included
        throw JetError(QStringLiteral("ο αριθμός %1 δεν είναι ημερομηνία").arg(days));
    const double whole = std::trunc(days);
    const auto seconds = static_cast<std::int64_t>(std::lround(std::fabs(days - whole) * secondsPerDay));
    const std::int64_t day = static_cast<std::int64_t>(whole) + seconds / secondsPerDay;
    if (static_cast<double>(day) > lastDay)
        throw JetError(QStringLiteral("ο αριθμός %1 δεν είναι ημερομηνία").arg(days));
    return {QDate(1899, 12, 30).addDays(day), QTime(0, 0).addSecs(static_cast<int>(seconds % secondsPerDay)), Qt::UTC};
}

JetValue valueOf(const JetFile& file, const JetRow& row, const JetColumn& column)
{
    if (column.kind == JetKind::Boolean)
        return row.boolean(column);
    const auto bytes = row.bytesOf(column);
    if (!bytes)
        return {};
    switch (column.kind) {
    case JetKind::Byte:
        return std::int32_t(ofWidth(*bytes, 1).u8(0));
    case JetKind::Integer:
        return std::int32_t(ofWidth(*bytes, 2).i16(0));
    case JetKind::Long:
        return ofWidth(*bytes, 4).i32(0);
    case JetKind::Currency:
        return JetMoney{ofWidth(*bytes, 8).i64(0)};
    case JetKind::Single:
        return finite(ofWidth(*bytes, 4).f32(0));
    case JetKind::Double:
        return finite(ofWidth(*bytes, 8).f64(0));
    case JetKind::Date:
        return dateTimeOf(ofWidth(*bytes, 8).f64(0));
    case JetKind::Text:
        return textIn(*bytes);
    case JetKind::Memo:
        return memoIn(file, *bytes);
    case JetKind::Boolean:
        break;
    }
    throw JetError(QStringLiteral("τιμές του είδους %1 δεν διαβάζονται").arg(static_cast<int>(column.kind)));
}

} // namespace lorvan
