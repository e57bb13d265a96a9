#include "codes/group_maintenance.h"

#include "journal/found_state.h"
#include "journal/journal.h"
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

std::optional<CodeGroup> readGroup(Connection& main, qint32 number)
{
    auto row = main.prepare("SELECT perigrafh FROM omades WHERE aa=?");
    row.bind(number);
    return row.step() ? std::optional(CodeGroup{number, row.text(0)}) : std::nullopt;
}

QJsonObject stateOf(const std::optional<CodeGroup>& group)
{
    return group ? journalState(*group) : QJsonObject();
}

void record(Connection& main, const Authority& authority, JournalAction action, const std::optional<CodeGroup>& before,
    const std::optional<CodeGroup>& after)
{
    const qint32 number = (after ? after : before)->number;
    const JournalEntry entry{action, journal_subject::group(number), {}, {}, stateOf(before), stateOf(after)};
    recordFoundState(main, entry);
    recordChange(main, authority, entry);
}

/// Whether a code of the group has another copy of its name.
bool areCodesBehind(Connection& main, const CodeGroup& group)
{
    auto row = main.prepare("SELECT 1 FROM kvdikoi WHERE aa_omadas=? AND omada IS NOT ? LIMIT 1");
    return row.bind(group.number, group.name).step();
}

/// Inside the caller's transaction.
void rename(Connection& main, const Authority& authority, const GroupChange& change, JournalAction action)
{
    const auto& [number, name] = change.after;
    main.prepare("UPDATE omades SET perigrafh=? WHERE aa=?").bind(name, number).run();
    main.prepare("UPDATE kvdikoi SET omada=? WHERE aa_omadas=?").bind(name, number).run();
    record(main, authority, action, change.before, change.after);
}

} // namespace

QJsonObject journalState(const CodeGroup& group)
{
    return {{QStringLiteral("aa"), group.number}, {QStringLiteral("perigrafh"), group.name}};
}

bool isGroupName(const QString& name)
{
    return !name.trimmed().isEmpty();
}

std::variant<CodeGroup, GroupRefusal> addGroup(Connection& main, const Authority& authority, const QString& name)
{
    authority.require(Right::ModifyCodes);
    if (!isGroupName(name))
        return GroupRefusal::NoName;
    const QString trimmed = name.trimmed();
    Transaction writing(main, authority);
    if (nameExists(main, trimmed))
        return GroupRefusal::NameExists;
    main.prepare("INSERT INTO omades (perigrafh) VALUES (?)").bind(trimmed).run();
    const CodeGroup group{static_cast<qint32>(main.lastInsertedKey()), trimmed};
    record(main, authority, JournalAction::Insert, std::nullopt, group);
    writing.commit();
    return group;
}

void storeGroup(Connection& main, const CodeGroup& group, const std::optional<QString>& notes)
{
    main.prepare("INSERT INTO omades (aa, sxolia, perigrafh) VALUES (?,?,?)")
        .bind(group.number, notes, group.name)
        .run();
}

std::variant<GroupChange, GroupRefusal> renameGroup(
    Connection& main, const Authority& authority, qint32 number, const QString& name)
{
    authority.require(Right::ModifyCodes);
    if (!isGroupName(name))
        return GroupRefusal::NoName;
    Transaction writing(main, authority);
    const auto former = readGroup(main, number);
    if (!former)
        return GroupRefusal::IsGone;
    const GroupChange change{*former, {number, name.trimmed()}};
    if (change.before.name == change.after.name && !areCodesBehind(main, change.after))
        return change;
    rename(main, authority, change, JournalAction::Modify);
    writing.commit();
    return change;
}

std::optional<GroupRefusal> repeatRenaming(
    Connection& main, const Authority& authority, const GroupChange& change, JournalAction action)
{
    authority.require(Right::ModifyCodes);
    Transaction writing(main, authority);
    const auto stored = readGroup(main, change.before.number);
    if (!stored)
        return GroupRefusal::IsGone;
    if (stored->name != change.before.name)
        return GroupRefusal::IsAnother;
    rename(main, authority, change, action);
    writing.commit();
    return std::nullopt;
}

std::optional<GroupRefusal> removeGroup(Connection& main, const Authority& authority, qint32 number)
{
    authority.require(Right::ModifyCodes);
    Transaction writing(main, authority);
    const auto former = readGroup(main, number);
    if (!former)
        return GroupRefusal::IsGone;
    main.prepare("DELETE FROM omades WHERE aa=?").bind(number).run();
    main.prepare("UPDATE kvdikoi SET aa_omadas=0, omada=' ' WHERE aa_omadas=?").bind(number).run();
    record(main, authority, JournalAction::Remove, former, std::nullopt);
    writing.commit();
    return std::nullopt;
}

} // namespace lorvan
