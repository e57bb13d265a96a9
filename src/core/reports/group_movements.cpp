#include "reports/group_movements.h"

#include "codes/code_catalogue.h"
#include "platform/engine/connection.h"
#include "platform/engine/greek_collation.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace lorvan {
namespace {

/// The rank of each name in Greek order: equal names have the same rank.
struct PlacedName {
    int place = 0;
    QString name;
};

using NamesOfGroups = std::map<qint32, std::vector<PlacedName>>;

struct PlacedMovement {
    int namePlace = 0;
    GroupMovement movement;
};

std::vector<MovementCode> codesByGroupName(Connection& main)
{
    std::vector<MovementCode> codes = listCodes(main, CodeSelection::All);
    const GreekCollation greek;
    std::stable_sort(codes.begin(), codes.end(), [&greek](const MovementCode& left, const MovementCode& right) {
        return greek.compare(left.groupName.trimmed(), right.groupName.trimmed()) < 0;
    });
    return codes;
}

NamesOfGroups namesOfGroups(Connection& main)
{
    const GreekCollation greek;
    NamesOfGroups names;
    PlacedName current;
    for (const MovementCode& code : codesByGroupName(main)) {
        if (greek.compare(code.groupName.trimmed(), current.name.trimmed()) != 0)
            ++current.place;
        current.name = code.groupName;
        std::vector<PlacedName>& ofGroup = names[code.group];
        if (ofGroup.empty() || ofGroup.back().place != current.place)
            ofGroup.push_back(current);
    }
    return names;
}

Statement distinctMovements(Connection& main, const MovementChoice& choice, Sameness sameness)
{
    const std::string compared = sameness == Sameness::Amounts ? "" : ", L_tajeos";
    auto movements = main.prepare("SELECT aa_omada, min(aa), kvdikos, hmeromhnia, perigrafh, esoda, ejoda" + compared
        + movementsFor(main, choice) + " GROUP BY +aa_omada, kvdikos, hmeromhnia, perigrafh, esoda, ejoda" + compared);
    movements.bind(choice.start, choice.end);
    return movements;
}

GroupMovement movementIn(const Statement& row, Sameness sameness)
{
    GroupMovement movement;
    movement.group = row.number(0);
    movement.key = row.integer(1);
    movement.code = row.number(2);
    movement.day = row.date(3);
    movement.description = row.text(4);
    movement.amounts = {row.currency(5), row.currency(6), sameness == Sameness::Amounts ? Currency() : row.currency(7)};
    return movement;
}

std::vector<PlacedMovement> placedMovements(Statement rows, const NamesOfGroups& names, Sameness sameness)
{
    std::vector<PlacedMovement> placed;
    while (rows.step()) {
        const auto ofGroup = names.find(rows.number(0));
        if (ofGroup == names.end())
            continue;
        const GroupMovement movement = movementIn(rows, sameness);
        for (const PlacedName& name : ofGroup->second) {
            placed.push_back({name.place, movement});
            placed.back().movement.groupName = name.name;
        }
    }
    return placed;
}

bool standsBefore(const PlacedMovement& left, const PlacedMovement& right)
{
    const GroupMovement& first = left.movement;
    const GroupMovement& second = right.movement;
    return std::tie(left.namePlace, first.code, second.day, first.group, first.key)
        < std::tie(right.namePlace, second.code, first.day, second.group, second.key);
}

} // namespace

std::vector<GroupMovement> groupMovements(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& groups, Sameness sameness)
{
    const MovementChoice choice{start, end, MovementChoice::By::Group, groups};
    std::vector<PlacedMovement> placed =
        placedMovements(distinctMovements(main, choice, sameness), namesOfGroups(main), sameness);
    std::sort(placed.begin(), placed.end(), standsBefore);
    std::vector<GroupMovement> movements;
    movements.reserve(placed.size());
    for (PlacedMovement& next : placed)
        movements.push_back(std::move(next.movement));
    return movements;
}

} // namespace lorvan
