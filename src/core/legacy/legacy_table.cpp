#include "legacy/legacy_table.h"

#include <algorithm>

namespace lorvan {

std::size_t LegacyTable::columnIndex(const QString& column) const
{
    const auto found =
        std::find_if(columns.begin(), columns.end(), [&](const LegacyColumn& each) { return each.name == column; });
    return static_cast<std::size_t>(found - columns.begin());
}

const std::vector<LegacyTable>& legacyTables()
{
    using enum LegacyForm;
    using enum LegacyTable::File;
    const auto column = [](const char* name, LegacyForm form) { return LegacyColumn{QString::fromLatin1(name), form}; };
    const auto placed = [](const char* name, LegacyForm form, std::size_t place) {
        return LegacyColumn{QString::fromLatin1(name), form, place};
    };
    const auto optional = [](const char* name, LegacyForm form) {
        return LegacyColumn{QString::fromLatin1(name), form, std::nullopt, true};
    };
    static const std::vector<LegacyTable> tables{
        {legacyMovements, Main,
            {column("aa", Counter), column("kvdikos", Number), column("hmeromhnia", Date), column("perigrafh", Text),
                column("esoda", Amount), column("ejoda", Amount), column("aa_omada", Number), placed("grammh", Text, 7),
                column("epitagh", Boolean), optional("L_tajeos", Amount)}},
        {QStringLiteral("tameio"), Main,
            {placed("aa", Counter, 0), column("hmeromhnia", Date), placed("esoda", Amount, 2),
                placed("ejoda", Amount, 3), column("ypoloipo", Amount)}},
        {QStringLiteral("kvdikoi"), Main,
            {placed("aa", Counter, 0), column("kvdikos", Number), column("perigrafh", Text), column("omada", Text),
                column("aa_omadas", Number), column("lista", Text), column("esodo", Boolean),
                column("energos", Boolean)}},
        {QStringLiteral("omades"), Main, {column("aa", Counter), placed("sxolia", Text, 1), column("perigrafh", Text)}},
        {legacyVersion, Main, {column("ariumos", Number)}},
        {QStringLiteral("klhsimotameioy"), Auxiliary, {optional("aa", Counter), column("hmeraklhsimatos", Date)}},
        {QStringLiteral("codes"), Auxiliary,
            {column("uname", Text), column("upass", Text), column("r_eggrafes", Boolean), column("r_klhsimo", Boolean),
                column("r_kvdikoi", Boolean)}},
    };
    return tables;
}

} // namespace lorvan
