#include "jet/jet_definition.h"

#include "jet/jet_text.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr std::uint64_t nextPageOffset = 4;
constexpr std::uint64_t continuationOffset = 8; ///< Where the data start on a continuation page.
constexpr std::uint64_t lengthOffset = 8;
constexpr std::uint64_t rowCountOffset = 16;
constexpr std::uint64_t columnsEverOffset = 41;
constexpr std::uint64_t columnCountOffset = 45;
constexpr std::uint64_t indexCountOffset = 51;
constexpr std::uint64_t usageMapOffset = 55;
constexpr std::uint64_t indexBlocksOffset = 63;
constexpr std::uint64_t indexBlockSize = 12;
constexpr std::uint64_t descriptionSize = 25;
constexpr int mostColumns = 255;

constexpr std::uint8_t fixedFlag = 0x01;
constexpr std::uint8_t counterFlag = 0x04;

/// All pages of a definition, joined.
QByteArray joinedPages(const JetFile& file, std::uint32_t firstPage)
{
    QByteArray joined = file.pageOfKind(firstPage, JetFile::PageKind::Definition).view().toByteArray();
    std::vector<bool> seen(file.pageCount());
    seen[firstPage] = true;
    std::uint32_t next = JetBytes(joined).u32(nextPageOffset);
    while (next != 0) {
        const JetBytes page = file.pageOfKind(next, JetFile::PageKind::Definition);
        if (seen[next])
            throw JetError(QStringLiteral("οι σελίδες του ορισμού κάνουν κύκλο στη σελίδα %1").arg(next));
        seen[next] = true;
        joined += page.from(continuationOffset).view();
        next = page.u32(nextPageOffset);
    }
    return joined;
}

JetColumn columnIn(const JetBytes& description)
{
    const std::uint8_t flags = description.u8(15);
    return {{}, static_cast<JetKind>(description.u8(0)), description.u16(5), (flags & fixedFlag) != 0,
        (flags & counterFlag) != 0, description.u16(7), description.u16(21), description.u16(23)};
}

std::vector<JetColumn> columnsIn(const JetBytes& definition)
{
    const std::uint64_t count = definition.u16(columnCountOffset);
    const std::uint64_t descriptions = indexBlocksOffset + definition.u32(indexCountOffset) * indexBlockSize;
    std::uint64_t name = descriptions + count * descriptionSize;
    std::vector<JetColumn> columns;
    for (std::uint64_t i = 0; i < count; ++i) {
        JetColumn column = columnIn(definition.part(descriptions + i * descriptionSize, descriptionSize));
        const std::uint64_t length = definition.u16(name);
        column.name = decodePlainText(definition.part(name + 2, length));
        name += 2 + length;
        columns.push_back(column);
    }
    return columns;
}

void checkNumbers(const JetDefinition& definition)
{
    if (definition.columnsEver > mostColumns)
        throw JetError(QStringLiteral("ο ορισμός μετρά %1 στήλες").arg(definition.columnsEver));
    if (definition.columns.empty())
        throw JetError(QStringLiteral("ο ορισμός δεν έχει στήλες"));
    int previous = -1;
    for (const JetColumn& column : definition.columns) {
        if (column.number == previous || column.number >= definition.columnsEver)
            throw JetError(QStringLiteral("η στήλη %1 έχει τον αριθμό %2, που δεν επιτρέπεται ή υπάρχει ήδη")
                               .arg(column.name)
                               .arg(column.number));
        previous = column.number;
    }
}

} // namespace

const JetColumn* JetDefinition::columnNamed(const QString& name) const
{
    const auto found = std::find_if(columns.begin(), columns.end(),
        [&](const JetColumn& column) { return column.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == columns.end() ? nullptr : &*found;
}

JetDefinition readDefinition(const JetFile& file, std::uint32_t firstPage)
{
    return locating({file.name(), {}, firstPage, {}, {}}, [&] {
        const QByteArray joined = joinedPages(file, firstPage);
        const std::uint64_t length = JetBytes(joined).u32(lengthOffset);
        if (length > static_cast<std::uint64_t>(joined.size()))
            throw JetError(
                QStringLiteral("ο ορισμός λέει ότι έχει %1 byte, αλλά βρέθηκαν %2").arg(length).arg(joined.size()));
        const JetBytes bytes = JetBytes(joined).part(0, length);
        JetDefinition definition{firstPage, bytes.u32(rowCountOffset), bytes.u16(columnsEverOffset),
            JetRowPointer::at(bytes, usageMapOffset), columnsIn(bytes)};
        std::sort(definition.columns.begin(), definition.columns.end(),
            [](const JetColumn& left, const JetColumn& right) { return left.number < right.number; });
        checkNumbers(definition);
        return definition;
    });
}

} // namespace lorvan
