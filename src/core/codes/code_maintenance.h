#pragma once

#include "codes/code_catalogue.h"

#include <optional>
#include <variant>

namespace lorvan {

/// A code as it stands in the entry fields.
struct CodeEntry {
    QString code;
    QString description;
    QString group; ///< The group's name, empty without a group.
    bool income = false;
    bool active = true;
};

/// Why a change of codes is refused, as far as the user can put it right.
enum class CodeRefusal {
    Incomplete, ///< Code or description is empty or blank.
    NoWholeNumber, ///< The code is no whole number of 32 bits.
    CodeExists,
    DescriptionExists, ///< Compared without regard to letter case.
    UnknownGroup,
    IsUsed, ///< A movement carries the code.
    IsGone, ///< Somebody else has deleted the code.
};

/// Each operation is one transaction and throws SqlError when the file cannot be read or written; the book is then as
/// it was.

/// Adds a code, active or not, after all checks in the order of CodeRefusal. The group number is that of the first
/// group with the entry's group name. A name of blanks is none: it is stored empty, with number 0. Returns the new row.
[[nodiscard]] std::variant<MovementCode, CodeRefusal> insertCode(Connection& main, const CodeEntry& entry);

/// Stores a code as it stands, without any check, inside the caller's transaction. It keeps its `row` where that one is
/// free; otherwise, and for 0, it gets a new one. A null group name is stored as NULL. Returns the row.
qint64 storeCode(Connection& main, const MovementCode& code);

/// Overwrites a row as typed, duplicates included, and gives the group number to every movement that carries the number
/// it has now. Movements under a former number keep it. Only a code that is no whole number is refused.
[[nodiscard]] std::optional<CodeRefusal> modifyCode(Connection& main, qint64 row, const CodeEntry& entry, qint32 group);

/// What modifyCode() would do beside storing the entry.
struct ModificationEffects {
    qint32 formerCode = 0;
    qint32 code = 0;
    bool codeExists = false; ///< Another row has the number.
    bool descriptionExists = false; ///< Another row has the description.
    qint64 keeping = 0; ///< Movements under the former number, where that changes.
    QString group = {}; ///< The name that the group number stands for, empty for none.
    bool groupDiffers = false; ///< From the name in the entry.
    qint64 moving = 0; ///< Movements that go into the group, or out of theirs where there is none.
};

/// For asking before a modification; changes nothing. Nothing where it would be refused.
[[nodiscard]] std::optional<ModificationEffects> effectsOfModification(
    Connection& main, qint64 row, const CodeEntry& entry, qint32 group);

/// Removes a row, unless a movement carries its stored number.
[[nodiscard]] std::optional<CodeRefusal> removeCode(Connection& main, qint64 row);

/// Why removeCode() would refuse: for asking before a question is put to the user.
[[nodiscard]] std::optional<CodeRefusal> checkRemoval(Connection& main, qint64 row);

} // namespace lorvan
