#pragma once

#include "codes/code_catalogue.h"

#include <QJsonObject>

#include <optional>
#include <variant>

namespace lorvan {

class Authority;
enum class JournalAction;

/// A code as shown in the entry fields.
struct CodeEntry {
    QString code;
    QString description;
    QString group; ///< The group's name, empty if there is no group.
    bool income = false;
    bool active = true;

    friend bool operator==(const CodeEntry&, const CodeEntry&) = default;
};

/// Why a change of codes is refused, in cases that the user can correct.
enum class CodeRefusal {
    Incomplete, ///< Code or description is empty or blank.
    NoWholeNumber, ///< The code is not a 32-bit integer.
    CodeExists,
    DescriptionExists, ///< Compared without regard to letter case.
    UnknownGroup,
    IsUsed, ///< The code is used in a movement.
    IsGone, ///< Somebody else has deleted the code.
    IsAnother, ///< Its row is no longer what the modification to be taken back or repeated begins with.
    MovementsDiffer, ///< And neither are the movements that it moved.
};

/// A modification of a code, with what is needed to take it back.
struct CodeChange {
    struct State {
        MovementCode code;
        QString groupName; ///< Of the group with the code's group number; empty if there was none.
        qint32 groupOfMovements = 0;
    };
    State before;
    State after;
    qint32 number = 0; ///< Of the movements that were given the code's group.
    qint64 movements = 0; ///< All that had the number.
    bool isReversible = false; ///< Whether these movements had one group in common, if any was moved.
};

/// Each operation is one transaction, recorded in the journal, and throws NotPermitted without the right to change
/// codes and SqlError if the file cannot be read or written; the book is then unchanged.

/// Adds a code, active or not, after all checks in the order of CodeRefusal. The group number is that of the first
/// group with the entry's group name. A blank name means no group: it is stored empty, with number 0. Returns the new
/// row.
[[nodiscard]] std::variant<MovementCode, CodeRefusal> insertCode(
    Connection& main, const Authority& authority, const CodeEntry& entry);

/// Stores a code as it is, without any check, inside the caller's transaction. It keeps its `row` if that is free;
/// otherwise, and for 0, it gets a new one. A null group name is stored as NULL. Returns the row.
qint64 storeCode(Connection& main, const MovementCode& code);

/// Overwrites a row as typed, duplicates included, and sets the group number of every movement with the code's new
/// number. Movements with its former number keep theirs. Refused only if the code is not an integer (or the row is
/// gone).
[[nodiscard]] std::variant<CodeChange, CodeRefusal> modifyCode(
    Connection& main, const Authority& authority, qint64 row, const CodeEntry& entry, qint32 group);

/// Makes a reversible modification again, or the reverse of one, as an undo or a redo. Refused if the code, its
/// movements or the group it would get are no longer what they were, or if another code has the number by now.
[[nodiscard]] std::optional<CodeRefusal> repeatModification(
    Connection& main, const Authority& authority, const CodeChange& change, JournalAction action);

/// What the journal stores of a code: columns with their values as in the file, without the display line.
[[nodiscard]] QJsonObject journalState(const MovementCode& code);

/// What modifyCode() would do apart from storing the entry.
struct ModificationEffects {
    qint32 formerCode = 0;
    qint32 code = 0;
    bool codeExists = false; ///< Another row has the number.
    bool descriptionExists = false; ///< Another row has the description.
    qint64 keeping = 0; ///< Movements with the former number, if the number changes.
    QString group = {}; ///< The name of the group with that number, empty if there is none.
    bool groupDiffers = false; ///< From the name in the entry.
    qint64 moving = 0; ///< Movements that would be put into the group or, if there is none, taken out of theirs.
};

/// For asking before a modification; changes nothing. No value if the modification would be refused.
[[nodiscard]] std::optional<ModificationEffects> effectsOfModification(
    Connection& main, qint64 row, const CodeEntry& entry, qint32 group);

/// Deletes a row, unless a movement uses its stored number.
[[nodiscard]] std::optional<CodeRefusal> removeCode(Connection& main, const Authority& authority, qint64 row);

/// Why removeCode() would refuse: for use before the user is asked for confirmation.
[[nodiscard]] std::optional<CodeRefusal> refusalOfRemoval(Connection& main, qint64 row);

} // namespace lorvan
