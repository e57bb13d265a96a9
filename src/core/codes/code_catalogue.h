#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace lorvan {

class Connection;

/// One row of `kvdikoi`.
struct MovementCode {
    qint32 code = 0;
    QString description;
    QString listLine; ///< The stored display line: the code in 5 characters, a blank, the description.
    qint32 group = 0; ///< 0 if it has no group.
    bool income = false;
    bool active = true;
    QString groupName = {}; ///< The group's name as last written here; a blank after the group was deleted.
    qint64 row = 0; ///< Identifies the row as long as it exists.

    friend bool operator==(const MovementCode&, const MovementCode&) = default;
};

struct CodeGroup {
    qint32 number = 0;
    QString name;
};

enum class CodeSelection { Active, All };

/// The codes by number; codes with the same number in the order in which they were entered.
[[nodiscard]] std::vector<MovementCode> listCodes(Connection& main, CodeSelection selection);

/// The first code with that number in the selection.
[[nodiscard]] std::optional<MovementCode> findCode(Connection& main, qint32 code, CodeSelection selection);

/// The code in that row.
[[nodiscard]] std::optional<MovementCode> readCode(Connection& main, qint64 row);

/// The codes of a group, or with 0 those without a group, by number.
[[nodiscard]] std::vector<MovementCode> listCodesOfGroup(Connection& main, qint32 group);

/// The groups in the order in which they were entered.
[[nodiscard]] std::vector<CodeGroup> listGroups(Connection& main);

/// The display line of a code: its last five characters right-aligned, a blank, the description as typed.
[[nodiscard]] QString codeListLine(const QString& code, const QString& description);

} // namespace lorvan
