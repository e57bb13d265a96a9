#include "codes/code_catalogue.h"

#include "app/padding.h"
#include "platform/connection.h"

namespace lorvan {
namespace {

constexpr qsizetype codeWidth = 5;

MovementCode codeIn(const Statement& row)
{
    return {row.number(0), row.text(1), row.text(2), row.number(3), row.boolean(4), row.boolean(5)};
}

} // namespace

std::vector<MovementCode> listCodes(Connection& main, CodeSelection selection)
{
    auto rows = main.prepare(selection == CodeSelection::Active
            ? "SELECT kvdikos, perigrafh, lista, aa_omadas, esodo, energos FROM kvdikoi WHERE energos<>0 ORDER BY "
              "kvdikos, aa"
            : "SELECT kvdikos, perigrafh, lista, aa_omadas, esodo, energos FROM kvdikoi ORDER BY kvdikos, aa");
    std::vector<MovementCode> codes;
    while (rows.step())
        codes.push_back(codeIn(rows));
    return codes;
}

std::optional<MovementCode> findCode(Connection& main, qint32 code, CodeSelection selection)
{
    auto row = main.prepare("SELECT kvdikos, perigrafh, lista, aa_omadas, esodo, energos FROM kvdikoi"
                            " WHERE kvdikos=? AND (energos<>0 OR ?) ORDER BY aa LIMIT 1");
    row.bind(code, selection == CodeSelection::All);
    return row.step() ? std::optional(codeIn(row)) : std::nullopt;
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
