#include "codes/code_maintenance.h"

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

void giveGroupToMovements(Connection& main, qint32 code, qint32 group)
{
    auto other = main.prepare("SELECT 1 FROM kinhseis WHERE kvdikos=? AND aa_omada IS NOT ? LIMIT 1");
    other.bind(code, group);
    if (other.step()) // so that a new description of a frequently used code rewrites no movement
        main.prepare("UPDATE kinhseis SET aa_omada=? WHERE kvdikos=?").bind(group, code).run();
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

bool isUsed(Connection& main, qint32 code)
{
    auto movement = main.prepare("SELECT 1 FROM kinhseis WHERE kvdikos=? LIMIT 1");
    movement.bind(code);
    return movement.step();
}

} // namespace

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

std::variant<MovementCode, CodeRefusal> insertCode(Connection& main, const CodeEntry& entry)
{
    Transaction writing(main);
    auto checked = validateInsertion(main, entry);
    if (auto* const code = std::get_if<MovementCode>(&checked)) {
        code->row = storeCode(main, *code);
        writing.commit();
    }
    return checked;
}

std::optional<CodeRefusal> modifyCode(Connection& main, qint64 row, const CodeEntry& entry, qint32 group)
{
    const auto number = wholeNumber(entry.code);
    if (!number)
        return CodeRefusal::NoWholeNumber;
    const MovementCode code = rowOf(entry, *number, group);
    Transaction writing(main);
    const int changed =
        main.prepare("UPDATE kvdikoi SET kvdikos=?, perigrafh=?, lista=?, aa_omadas=?, esodo=?,"
                     " energos=?, omada=? WHERE aa=?")
            .bind(code.code, code.description, code.listLine, code.group, code.income, code.active, code.groupName, row)
            .run();
    if (changed == 0)
        return CodeRefusal::IsGone;
    giveGroupToMovements(main, code.code, code.group);
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

std::optional<CodeRefusal> removeCode(Connection& main, qint64 row)
{
    Transaction writing(main);
    if (const auto refusal = refusalOfRemoval(main, row))
        return refusal;
    main.prepare("DELETE FROM kvdikoi WHERE aa=?").bind(row).run();
    writing.commit();
    return std::nullopt;
}

} // namespace lorvan
