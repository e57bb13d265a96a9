#include "codes/code_maintenance.h"

#include "journal/found_state.h"
#include "journal/hash_text.h"
#include "journal/journal.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

namespace lorvan {
namespace {

std::optional<qint32> wholeNumber(const QString& typed)
{
    bool fits = false;
    const qint32 number = typed.trimmed().toInt(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

bool descriptionExists(Connection& main, const QString& description)
{
    auto row = main.prepare("SELECT 1 FROM kvdikoi WHERE perigrafh=? COLLATE greek LIMIT 1");
    row.bind(description);
    return row.step();
}

std::optional<qint32> groupNamed(Connection& main, const QString& name)
{
    auto row = main.prepare("SELECT aa FROM omades WHERE perigrafh=? COLLATE greek ORDER BY aa LIMIT 1");
    row.bind(name);
    return row.step() ? std::optional(row.number(0)) : std::nullopt;
}

MovementCode rowOf(const CodeEntry& entry, qint32 code, qint32 group)
{
    return {code, entry.description.trimmed(), codeListLine(entry.code, entry.description), group, entry.income,
        entry.active, entry.group.isNull() ? QStringLiteral("") : entry.group};
}

/// The row to be added, if the entry is accepted.
std::variant<MovementCode, CodeRefusal> validateInsertion(Connection& main, const CodeEntry& entry)
{
    const QString description = entry.description.trimmed();
    if (entry.code.trimmed().isEmpty() || description.isEmpty())
        return CodeRefusal::Incomplete;
    const auto code = wholeNumber(entry.code);
    if (!code)
        return CodeRefusal::NoWholeNumber;
    if (findCode(main, *code, CodeSelection::All))
        return CodeRefusal::CodeExists;
    if (descriptionExists(main, description))
        return CodeRefusal::DescriptionExists;
    if (entry.group.trimmed().isEmpty())
        return rowOf({entry.code, entry.description, {}, entry.income, entry.active}, *code, 0);
    const auto group = groupNamed(main, entry.group.trimmed());
    if (!group)
        return CodeRefusal::UnknownGroup;
    return rowOf(entry, *code, *group);
}

/// What a modification did to movements, for the journal; all zero and empty if nothing.
struct MovedMovements {
    HashText former; ///< Of each movement, its key and the group it had.
    qint64 count = 0;
    std::optional<qint32> commonGroup; ///< The group that all of them had, if there is just one.
};

MovedMovements movementsOutside(Connection& main, qint32 code, qint32 group)
{
    MovedMovements moved;
    auto rows =
        main.prepare("SELECT aa, ifnull(aa_omada, 0) FROM kinhseis WHERE kvdikos=? AND aa_omada IS NOT ? ORDER BY aa");
    for (rows.bind(code, group); rows.step(); ++moved.count) {
        moved.former.add("aa", rows.integer(0)).add("aa_omada", rows.integer(1));
        if (moved.count == 0)
            moved.commonGroup = rows.number(1);
        else if (moved.commonGroup != rows.number(1))
            moved.commonGroup.reset();
    }
    return moved;
}

/// The state before a modification, with the movements that it moved.
QJsonObject withMoved(QJsonObject state, const MovedMovements& moved)
{
    if (moved.count == 0)
        return state;
    state[QStringLiteral("moved")] = moved.count;
    state[QStringLiteral("digest")] = moved.former.hash();
    if (moved.commonGroup)
        state[QStringLiteral("aa_omada")] = *moved.commonGroup;
    return state;
}

/// A new description of a frequently used code rewrites no movement.
MovedMovements giveGroupToMovements(Connection& main, qint32 code, qint32 group)
{
    MovedMovements moved = movementsOutside(main, code, group);
    if (moved.count > 0)
        main.prepare("UPDATE kinhseis SET aa_omada=? WHERE kvdikos=?").bind(group, code).run();
    return moved;
}

void record(Connection& main, const Authority& authority, JournalAction action, const MovementCode& code,
    const QJsonObject& before, const QJsonObject& after)
{
    const JournalEntry entry{action, journal_subject::code(code.row), {}, code.code, before, after};
    recordFoundState(main, entry);
    recordChange(main, authority, entry);
}

template <typename... Values> qint64 count(Connection& main, std::string_view sql, const Values&... values)
{
    auto row = main.prepare(sql);
    row.bind(values...);
    return row.step() ? row.integer(0) : 0;
}

QString nameOfGroup(Connection& main, qint32 group)
{
    auto row = main.prepare("SELECT perigrafh FROM omades WHERE aa=?");
    row.bind(group);
    return row.step() ? row.text(0) : QString();
}

void overwriteCode(Connection& main, const MovementCode& code)
{
    const auto groupName = code.groupName.isNull() ? std::nullopt : std::optional(code.groupName);
    main.prepare("UPDATE kvdikoi SET kvdikos=?, perigrafh=?, lista=?, aa_omadas=?, esodo=?, energos=?, omada=?"
                 " WHERE aa=?")
        .bind(code.code, code.description, code.listLine, code.group, code.income, code.active, groupName, code.row)
        .run();
}

CodeChange changeOf(Connection& main, const MovementCode& former, const MovementCode& code, const MovedMovements& moved)
{
    CodeChange change;
    change.number = code.code;
    change.movements = count(main, "SELECT count(*) FROM kinhseis WHERE kvdikos=?", code.code);
    change.before = {former, nameOfGroup(main, former.group), moved.commonGroup.value_or(code.group)};
    change.after = {code, nameOfGroup(main, code.group), code.group};
    change.isReversible = moved.count == 0 || (moved.commonGroup && moved.count == change.movements);
    return change;
}

/// True if the modification has nothing to do with movements, or all of them are as it left them.
bool movementsAre(Connection& main, const CodeChange& change)
{
    const CodeChange::State& before = change.before;
    const CodeChange::State& after = change.after;
    if (before.groupOfMovements == after.groupOfMovements && before.code.code == after.code.code)
        return true;
    return count(main, "SELECT count(*) FROM kinhseis WHERE kvdikos=?", change.number) == change.movements
        && movementsOutside(main, change.number, before.groupOfMovements).count == 0;
}

std::optional<CodeRefusal> refusalOfRepeating(Connection& main, const CodeChange& change)
{
    const MovementCode& code = change.after.code;
    const auto stored = readCode(main, code.row);
    if (!stored)
        return CodeRefusal::IsGone;
    if (*stored != change.before.code)
        return CodeRefusal::IsAnother;
    if (nameOfGroup(main, code.group) != change.after.groupName)
        return CodeRefusal::UnknownGroup;
    if (code.code != stored->code
        && count(main, "SELECT count(*) FROM kvdikoi WHERE kvdikos=? AND aa<>?", code.code, code.row) > 0)
        return CodeRefusal::CodeExists;
    return movementsAre(main, change) ? std::nullopt : std::optional(CodeRefusal::MovementsDiffer);
}

bool isUsed(Connection& main, qint32 code)
{
    auto movement = main.prepare("SELECT 1 FROM kinhseis WHERE kvdikos=? LIMIT 1");
    movement.bind(code);
    return movement.step();
}

} // namespace

QJsonObject journalState(const MovementCode& code)
{
    return {{QStringLiteral("aa"), code.row}, {QStringLiteral("kvdikos"), code.code},
        {QStringLiteral("perigrafh"), code.description}, {QStringLiteral("omada"), code.groupName},
        {QStringLiteral("aa_omadas"), code.group}, {QStringLiteral("esodo"), code.income},
        {QStringLiteral("energos"), code.active}};
}

qint64 storeCode(Connection& main, const MovementCode& code)
{
    const auto groupName = code.groupName.isNull() ? std::nullopt : std::optional(code.groupName);
    main.prepare(
            "INSERT INTO kvdikoi (aa, kvdikos, perigrafh, lista, aa_omadas, esodo, energos, omada)"
            " VALUES ((SELECT nullif(?1,0) WHERE NOT EXISTS (SELECT 1 FROM kvdikoi WHERE aa=?1)),?2,?3,?4,?5,?6,?7,?8)")
        .bind(code.row, code.code, code.description, code.listLine, code.group, code.income, code.active, groupName)
        .run();
    return main.lastInsertedKey();
}

std::variant<MovementCode, CodeRefusal> insertCode(Connection& main, const Authority& authority, const CodeEntry& entry)
{
    authority.require(Right::ModifyCodes);
    Transaction writing(main, authority);
    auto checked = validateInsertion(main, entry);
    if (auto* const code = std::get_if<MovementCode>(&checked)) {
        code->row = storeCode(main, *code);
        record(main, authority, JournalAction::Insert, *code, {}, journalState(*code));
        writing.commit();
    }
    return checked;
}

std::variant<CodeChange, CodeRefusal> modifyCode(
    Connection& main, const Authority& authority, qint64 row, const CodeEntry& entry, qint32 group)
{
    authority.require(Right::ModifyCodes);
    const auto number = wholeNumber(entry.code);
    if (!number)
        return CodeRefusal::NoWholeNumber;
    MovementCode code = rowOf(entry, *number, group);
    code.row = row;
    Transaction writing(main, authority);
    const auto former = readCode(main, row);
    if (!former)
        return CodeRefusal::IsGone;
    overwriteCode(main, code);
    const MovedMovements moved = giveGroupToMovements(main, code.code, code.group);
    record(main, authority, JournalAction::Modify, code, withMoved(journalState(*former), moved), journalState(code));
    CodeChange change = changeOf(main, *former, code, moved);
    writing.commit();
    return change;
}

std::optional<CodeRefusal> repeatModification(
    Connection& main, const Authority& authority, const CodeChange& change, JournalAction action)
{
    authority.require(Right::ModifyCodes);
    Transaction writing(main, authority);
    if (const auto refusal = refusalOfRepeating(main, change))
        return refusal;
    const CodeChange::State& before = change.before;
    const CodeChange::State& after = change.after;
    overwriteCode(main, after.code);
    MovedMovements moved;
    if (before.groupOfMovements != after.groupOfMovements)
        moved = giveGroupToMovements(main, change.number, after.groupOfMovements);
    record(main, authority, action, after.code, withMoved(journalState(before.code), moved), journalState(after.code));
    writing.commit();
    return std::nullopt;
}

std::optional<ModificationEffects> effectsOfModification(
    Connection& main, qint64 row, const CodeEntry& entry, qint32 group)
{
    const auto former = readCode(main, row);
    const auto number = wholeNumber(entry.code);
    if (!former || !number)
        return std::nullopt;
    const QString description = entry.description.trimmed();
    ModificationEffects effects{former->code, *number};
    effects.codeExists = count(main, "SELECT count(*) FROM kvdikoi WHERE kvdikos=? AND aa<>?", *number, row) > 0;
    effects.descriptionExists = !description.isEmpty()
        && count(main, "SELECT count(*) FROM kvdikoi WHERE perigrafh=? COLLATE greek AND aa<>?", description, row) > 0;
    if (*number != former->code)
        effects.keeping = count(main, "SELECT count(*) FROM kinhseis WHERE kvdikos=?", former->code);
    effects.group = nameOfGroup(main, group);
    effects.groupDiffers = effects.group.trimmed() != entry.group.trimmed();
    effects.moving =
        count(main, "SELECT count(*) FROM kinhseis WHERE kvdikos=? AND ifnull(aa_omada,0)<>?", *number, group);
    return effects;
}

std::optional<CodeRefusal> refusalOfRemoval(Connection& main, qint64 row)
{
    const auto code = readCode(main, row);
    if (!code)
        return CodeRefusal::IsGone;
    return isUsed(main, code->code) ? std::optional(CodeRefusal::IsUsed) : std::nullopt;
}

std::optional<CodeRefusal> removeCode(Connection& main, const Authority& authority, qint64 row)
{
    authority.require(Right::ModifyCodes);
    Transaction writing(main, authority);
    if (const auto refusal = refusalOfRemoval(main, row))
        return refusal;
    const MovementCode former = readCode(main, row).value();
    main.prepare("DELETE FROM kvdikoi WHERE aa=?").bind(row).run();
    record(main, authority, JournalAction::Remove, former, journalState(former), {});
    writing.commit();
    return std::nullopt;
}

} // namespace lorvan
