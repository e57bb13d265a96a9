#include "codes/code_catalogue.h"

#include "platform/engine/connection.h"
#include "platform/padding.h"

#include <string>
#include <string_view>

namespace lorvan {
namespace {

constexpr qsizetype codeWidth = 5;

constexpr std::string_view columns =
    "SELECT kvdikos, perigrafh, lista, aa_omadas, esodo, energos, omada, aa FROM kvdikoi ";

MovementCode codeIn(const Statement& row)
{
    return {row.number(0), row.text(1), row.text(2), row.number(3), row.boolean(4), row.boolean(5), row.text(6),
        row.integer(7)};
}

Statement select(Connection& main, std::string_view condition)
{
    return main.prepare(std::string(columns).append(condition));
}

std::vector<MovementCode> codesIn(Statement rows)
{
    std::vector<MovementCode> codes;
    while (rows.step())
        codes.push_back(codeIn(rows));
    return codes;
}

std::optional<MovementCode> firstCodeIn(Statement rows)
{
    return rows.step() ? std::optional(codeIn(rows)) : std::nullopt;
}

} // namespace

std::vector<MovementCode> listCodes(Connection& main, CodeSelection selection)
{
    return codesIn(select(
        main, selection == CodeSelection::Active ? "WHERE energos<>0 ORDER BY kvdikos, aa" : "ORDER BY kvdikos, aa"));
}

std::vector<MovementCode> listCodesOfGroup(Connection& main, qint32 group)
{
    auto rows = select(main, "WHERE aa_omadas=? ORDER BY kvdikos, aa");
    rows.bind(group);
    return codesIn(std::move(rows));
}

std::optional<MovementCode> findCode(Connection& main, qint32 code, CodeSelection selection)
{
    auto rows = select(main, "WHERE kvdikos=? AND (energos<>0 OR ?) ORDER BY aa LIMIT 1");
    rows.bind(code, selection == CodeSelection::All);
    return firstCodeIn(std::move(rows));
}

std::optional<MovementCode> readCode(Connection& main, qint64 row)
{
    auto rows = select(main, "WHERE aa=?");
    rows.bind(row);
    return firstCodeIn(std::move(rows));
}

std::vector<CodeGroup> listGroups(Connection& main)
{
    auto rows = main.prepare("SELECT aa, perigrafh FROM omades ORDER BY aa");
    std::vector<CodeGroup> groups;
    while (rows.step())
        groups.push_back({rows.number(0), rows.text(1)});
    return groups;
}

QString codeListLine(const QString& code, const QString& description)
{
    return rightAligned(code, codeWidth) + u' ' + description;
}

} // namespace lorvan
