#pragma once

#include "reports/code_sums.h"
#include "reports/movement_choice.h"

#include <QString>

namespace lorvan {

/// A movement and the name of its group.
struct GroupMovement {
    qint32 group = 0; ///< The one stored with the movement.
    QString groupName;
    qint32 code = 0;
    QDate day;
    QString description;
    MovementSums amounts;
    qint64 key = 0; ///< `aa`; of equal ones the first.
};

/// What makes two movements of a group equal.
enum class Sameness { AmountsAndMemorandum, Amounts };

/// The movements of the period that belong to a group which codes in the catalogue have, for the given groups or for
/// all; codes without a group form group 0.
///
/// The names of a group are those in its codes, compared without regard to letter case and blanks around them; a
/// movement of a group with several names is listed under each. Movements of one group with the same code, date,
/// description and amounts count once; if the memorandum amount was not compared, it is then missing.
///
/// Sorted by group name in Greek collation, code, newest date first; then by group number and order of entry. The
/// catalogue and each movement are read once, whatever the number of codes in a group. Throws SqlError. Runs inside the
/// caller's transaction.
[[nodiscard]] std::vector<GroupMovement> groupMovements(
    Connection& main, QDate start, QDate end, const std::vector<qint32>& groups, Sameness sameness);

} // namespace lorvan
