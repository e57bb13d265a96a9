#include "jet/jet_catalogue.h"

#include "jet/jet_table.h"
#include "jet/jet_value.h"

namespace lorvan {
namespace {

constexpr std::uint32_t cataloguePage = 2;
constexpr std::int32_t tableType = 1;
constexpr std::uint32_t systemFlags = 0x80000002;
constexpr std::uint32_t pageBits = 0xFFFFFF;

const QString& catalogueName()
{
    static const QString name = QStringLiteral("MSysObjects");
    return name;
}

template <typename Value>
Value required(const JetFile& file, const JetDefinition& definition, const JetRow& row, const QString& name)
{
    return locating({{}, {}, {}, {}, name}, [&] {
        const JetColumn* const column = definition.columnNamed(name);
        if (!column)
            throw JetError(QStringLiteral("η στήλη λείπει"));
        const JetValue value = valueOf(file, row, *column);
        if (!std::holds_alternative<Value>(value))
            throw JetError(QStringLiteral("η τιμή λείπει ή είναι άλλου είδους"));
        return std::get<Value>(value);
    });
}

} // namespace

JetCatalogue::JetCatalogue(const JetFile& file, JetDamage& damage)
    : m_file(file)
{
    const JetPlace place{file.name(), catalogueName(), {}, {}, {}};
    const JetDefinition definition = locating(place, [&] { return readDefinition(file, cataloguePage); });
    readRows(file, definition, catalogueName(), damage, [&](const JetRow& row) { take(definition, row); });
}

void JetCatalogue::take(const JetDefinition& catalogue, const JetRow& row)
{
    const auto type = required<std::int32_t>(m_file, catalogue, row, QStringLiteral("Type"));
    const auto flags = required<std::int32_t>(m_file, catalogue, row, QStringLiteral("Flags"));
    if (type != tableType || (static_cast<std::uint32_t>(flags) & systemFlags) != 0)
        return;
    const auto name = required<QString>(m_file, catalogue, row, QStringLiteral("Name"));
    const auto id = required<std::int32_t>(m_file, catalogue, row, QStringLiteral("Id"));
    if (m_pages.contains(name.toLower()))
        throw JetError(QStringLiteral("υπάρχουν δύο πίνακες με το όνομα %1").arg(name));
    m_pages.insert(name.toLower(), static_cast<std::uint32_t>(id) & pageBits);
}

JetDefinition JetCatalogue::definitionOf(const QString& table) const
{
    return locating({m_file.name(), table, {}, {}, {}}, [&] {
        const auto found = m_pages.find(table.toLower());
        if (found == m_pages.end())
            throw JetError(QStringLiteral("ο πίνακας λείπει από το αρχείο"));
        return readDefinition(m_file, *found);
    });
}

} // namespace lorvan
