#pragma once

#include "codes/code_catalogue.h"

#include <QJsonObject>

#include <optional>
#include <variant>

namespace lorvan {

class Authority;
enum class JournalAction;

/// Why a change of groups is refused, in cases that the user can correct.
enum class GroupRefusal {
    NoName, ///< The name is empty or blank.
    NameExists, ///< A group already has the name, ignoring letter case and blanks around it.
    IsGone, ///< Somebody else has deleted the group.
    IsAnother, ///< Its name is no longer what the renaming to be taken back or repeated begins with.
};

/// A group's row before and after it was renamed.
struct GroupChange {
    CodeGroup before;
    CodeGroup after;
};

/// Each operation is one transaction, recorded in the journal, and throws NotPermitted without the right to change
/// codes and SqlError if the file cannot be read or written; the book is then unchanged. A group's codes hold copies of
/// its number and name, which change with it; movements hold copies of the number, which do not change.

/// Adds a group, its name trimmed. Returns it with its new number.
[[nodiscard]] std::variant<CodeGroup, GroupRefusal> addGroup(
    Connection& main, const Authority& authority, const QString& name);

/// Stores a group under its number, which must be free, without any check, inside the caller's transaction. `notes` go
/// into a column that the program does not use.
void storeGroup(Connection& main, const CodeGroup& group, const std::optional<QString>& notes);

/// Renames a group, also in all its codes. The name of another group is accepted; with its present name, the group's
/// codes are updated to it. Never refuses with NameExists or IsAnother.
[[nodiscard]] std::variant<GroupChange, GroupRefusal> renameGroup(
    Connection& main, const Authority& authority, qint32 number, const QString& name);

/// Renames a group as it was renamed before, or back if the change is reversed, as an undo or a redo. Refuses with
/// IsGone and IsAnother alone.
[[nodiscard]] std::optional<GroupRefusal> repeatRenaming(
    Connection& main, const Authority& authority, const GroupChange& change, JournalAction action);

/// What the journal stores of a group.
[[nodiscard]] QJsonObject journalState(const CodeGroup& group);

/// Deletes a group. Its codes get the number 0 and a single blank as group name.
[[nodiscard]] std::optional<GroupRefusal> removeGroup(Connection& main, const Authority& authority, qint32 number);

/// Whether a group can have that name: not empty and not blank. For use before the user is asked for confirmation.
[[nodiscard]] bool isGroupName(const QString& name);

} // namespace lorvan
