#include "document/report_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace lorvan {

namespace {

constexpr int a4Width = 11906;
constexpr int a4Height = 16838;
constexpr int greatestLength = 10 * 1440 * 12; // ten feet; a greater number is not a length

std::optional<int> twipsOf(QStringView text)
{
    static constexpr std::array<std::pair<QStringView, double>, 4> units = {
        {{u"cm", 1440 / 2.54}, {u"mm", 144 / 2.54}, {u"in", 1440.0}, {u"pt", 20.0}}};
    double twipsInUnit = 1;
    QStringView number = text.trimmed();
    for (const auto& [unit, twips] : units) {
        if (!number.endsWith(unit, Qt::CaseInsensitive))
            continue;
        number = number.chopped(unit.size()).trimmed();
        twipsInUnit = twips;
        break;
    }
    bool isNumber = false;
    const double twips = number.toDouble(&isNumber) * twipsInUnit;
    if (!isNumber || !(std::abs(twips) <= greatestLength))
        return std::nullopt;
    return static_cast<int>(std::lround(twips));
}

std::optional<ColumnAlignment> alignmentOf(QChar mark)
{
    switch (mark.unicode()) {
    case u'<':
        return ColumnAlignment::Left;
    case u'^':
        return ColumnAlignment::Centre;
    case u'>':
        return ColumnAlignment::Right;
    default:
        return std::nullopt;
    }
}

ReportColumn parseColumn(QStringView entry)
{
    ReportColumn column;
    entry = entry.trimmed();
    while (!entry.isEmpty()) {
        const std::optional<ColumnAlignment> alignment = alignmentOf(entry.front());
        if (!alignment)
            break;
        column.alignment = *alignment;
        entry = entry.sliced(1);
    }
    column.width = std::max(0, twipsOf(entry).value_or(0));
    return column;
}

} // namespace

ReportLength::ReportLength(const QString& text)
    : m_twips(twipsOf(text))
{
}

int ReportPageSettings::widthInTwips() const
{
    return orientation == ReportOrientation::Portrait ? a4Width : a4Height;
}

int ReportPageSettings::heightInTwips() const
{
    return orientation == ReportOrientation::Portrait ? a4Height : a4Width;
}

std::vector<ReportColumn> parseTableFormat(QStringView format)
{
    std::vector<ReportColumn> columns;
    if (format.isEmpty())
        return columns;
    for (const QStringView entry : format.tokenize(u'|'))
        columns.push_back(parseColumn(entry));
    return columns;
}

ThreeParts splitIntoThree(const QString& text)
{
    return {text.section(u'|', 0, 0), text.section(u'|', 1, 1), text.section(u'|', 2)};
}

CellTexts::CellTexts(QStringView barSeparated)
{
    if (barSeparated.isEmpty())
        return;
    qsizetype start = 0;
    for (qsizetype bar = barSeparated.indexOf(u'|'); bar >= 0; bar = barSeparated.indexOf(u'|', start)) {
        m_cells.append(barSeparated.sliced(start, bar - start));
        start = bar + 1;
    }
    m_cells.append(barSeparated.sliced(start));
}

CellTexts::CellTexts(const QStringList& cells)
{
    m_cells.reserve(cells.size());
    for (const QString& cell : cells)
        m_cells.append(cell);
}

} // namespace lorvan
