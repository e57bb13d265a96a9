#pragma once

#include "cashbook/cash_book.h"
#include "marker/notices.h"
#include "proof/balance_proof.h"
#include "proof/last_proof.h"

#include <optional>
#include <vector>

namespace lorvan {

/// What the line below the tabs says of a proof that found something: the first day whose balance is wrong and by how
/// much, or else the first other finding, and how many more days there are. No value if balances and seals are proved.
[[nodiscard]] std::optional<Notice> proofNotice(const BalanceProof& proof);

/// What was corrected in a cash day that was shown: the stored and the new balance, or the sums where only they
/// differed.
[[nodiscard]] QString correctionText(const DayCorrection& correction);
/// The latest correction, and how many more there are; the reason lists all of them. There must be one.
[[nodiscard]] Notice correctedNotice(const std::vector<DayCorrection>& corrections);

/// When balances and seals were proved, and on how many movements, days and seals.
/// `advance` is what WorkPace says.
[[nodiscard]] QString provingText(const QString& advance);
[[nodiscard]] QString provedText(const LastProof& proof);
/// Why they could not be proved.
[[nodiscard]] QString notProvedText(const QString& reason);

} // namespace lorvan
