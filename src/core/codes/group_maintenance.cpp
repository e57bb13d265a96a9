#include "codes/group_maintenance.h"

#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

namespace lorvan {
namespace {

bool nameExists(Connection& main, const QString& name)
{
    auto row = main.prepare("SELECT 1 FROM omades WHERE perigrafh=? COLLATE greek LIMIT 1");
    row.bind(name);
    return row.step();
}

} // namespace

bool isGroupName(const QString& name)
{
    return !name.trimmed().isEmpty();
}

std::variant<CodeGroup, GroupRefusal> addGroup(Connection& main, const QString& name)
{
    if (!isGroupName(name))
        return GroupRefusal::NoName;
    const QString trimmed = name.trimmed();
    Transaction writing(main);
    if (nameExists(main, trimmed))
        return GroupRefusal::NameExists;
    main.prepare("INSERT INTO omades (perigrafh) VALUES (?)").bind(trimmed).run();
    const auto number = static_cast<qint32>(main.lastInsertedKey());
    writing.commit();
    return CodeGroup{number, trimmed};
}

void storeGroup(Connection& main, const CodeGroup& group, const std::optional<QString>& notes)
{
    main.prepare("INSERT INTO omades (aa, sxolia, perigrafh) VALUES (?,?,?)")
        .bind(group.number, notes, group.name)
        .run();
}

std::optional<GroupRefusal> renameGroup(Connection& main, qint32 number, const QString& name)
{
    if (!isGroupName(name))
        return GroupRefusal::NoName;
    const QString trimmed = name.trimmed();
    Transaction writing(main);
    if (main.prepare("UPDATE omades SET perigrafh=? WHERE aa=?").bind(trimmed, number).run() == 0)
        return GroupRefusal::IsGone;
    main.prepare("UPDATE kvdikoi SET omada=? WHERE aa_omadas=?").bind(trimmed, number).run();
    writing.commit();
    return std::nullopt;
}

std::optional<GroupRefusal> removeGroup(Connection& main, qint32 number)
{
    Transaction writing(main);
    if (main.prepare("DELETE FROM omades WHERE aa=?").bind(number).run() == 0)
        return GroupRefusal::IsGone;
    main.prepare("UPDATE kvdikoi SET aa_omadas=0, omada=' ' WHERE aa_omadas=?").bind(number).run();
    writing.commit();
    return std::nullopt;
}

} // namespace lorvan
