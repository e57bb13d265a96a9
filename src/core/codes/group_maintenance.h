#pragma once

#include "codes/code_catalogue.h"

#include <optional>
#include <variant>

namespace lorvan {

/// Why a change of groups is refused, as far as the user can put it right.
enum class GroupRefusal {
    NoName, ///< The name is empty or blank.
    NameExists, ///< A group has the name already, blanks around it and letter case aside.
    IsGone, ///< Somebody else has deleted the group.
};

/// Each operation is one transaction and throws SqlError when the file cannot be read or written; the book is then as
/// it was. A group's codes hold copies of its number and name, which change with it; movements hold copies of the
/// number, which stay.

/// Adds a group, its name trimmed. Returns it with the number that it was given.
[[nodiscard]] std::variant<CodeGroup, GroupRefusal> addGroup(Connection& main, const QString& name);

/// Stores a group under its number, which must be free, without any check, inside the caller's transaction. `notes` go
/// into the column that the program does not use.
void storeGroup(Connection& main, const CodeGroup& group, const std::optional<QString>& notes);

/// Renames a group, and every code of it. The name of another group is accepted; the name that it has already brings
/// its codes in step. Never refuses with NameExists.
[[nodiscard]] std::optional<GroupRefusal> renameGroup(Connection& main, qint32 number, const QString& name);

/// Deletes a group. Its codes get the number 0 and a single blank for a name.
[[nodiscard]] std::optional<GroupRefusal> removeGroup(Connection& main, qint32 number);

/// Whether a group can be called that: not empty, not blanks alone. For asking before a question is put to the user.
[[nodiscard]] bool isGroupName(const QString& name);

} // namespace lorvan
