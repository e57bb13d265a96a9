#pragma once

#include "reports/code_sums.h"
#include "reports/movement_choice.h"

#include <QString>

namespace lorvan {

/// A movement under the name of its group.
struct GroupMovement {
    qint32 group = 0; ///< The one stored with the movement.
    QString groupName;
    qint32 code = 0;
    QDate day;
    QString description;
    MovementSums amounts;
};

/// What makes two movements of a group the same one.
enum class Sameness { AmountsAndMemorandum, Amounts };

/// The movements of the period that belong to a group which the catalogue's codes know, in those groups or in all;
/// codes without a group make up the group 0.
///
/// A group has the names that its codes carry, compared without regard to letter case and blanks around them; a
/// movement of a group with several names stands under each. Movements of one group that agree in code, date,
/// description and amounts count once, and then have no memorandum amount if that was not compared.
///
/// In the order of group names in Greek collation, code, newest date first; then by group number and order of entry.
/// The catalogue and each movement are read once, whatever the number of codes in a group.
/// Throws SqlError. Runs inside the caller's transaction.
[[nodiscard]] std::vector<GroupMovement> groupMovements(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& groups, Sameness sameness);

} // namespace lorvan
