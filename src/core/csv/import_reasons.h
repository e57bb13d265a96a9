#pragma once

#include "csv/csv_table.h"
#include "movements/movement_validation.h"

namespace lorvan::import_reasons {

// The reasons for refusing a row that could be read. Rows that cannot be: csv_reader.h (quotes, sizes), csv_table.h
// (titles, fields), csv_values.h (values).

[[nodiscard]] BadRow groupNumberTooSmall();
[[nodiscard]] BadRow groupNameMissing();
[[nodiscard]] BadRow groupNumberTaken(qint32 number, const QString& byName);
[[nodiscard]] BadRow groupNameTaken(const QString& name);

[[nodiscard]] BadRow groupUnknown(const QString& name);
[[nodiscard]] BadRow groupUnknown(qint32 number);
[[nodiscard]] BadRow groupAmbiguous(const QString& name);
[[nodiscard]] BadRow codeDescriptionMissing();
[[nodiscard]] BadRow codeTaken(qint32 code, const QString& byDescription);
[[nodiscard]] BadRow codeDescriptionTaken(const QString& description);

[[nodiscard]] BadRow incomeAndExpense();
[[nodiscard]] BadRow movementRefused(MovementRefusal refusal, const MovementDraft& draft);
[[nodiscard]] BadRow amountsTooLarge(QDate day);

[[nodiscard]] BadRow dayIsClosed(QDate day);
[[nodiscard]] BadRow openingDifferenceTaken(QDate day);
[[nodiscard]] BadRow balancesTooLarge();

} // namespace lorvan::import_reasons
