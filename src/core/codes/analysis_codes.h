#pragma once

#include "codes/cash_analysis_groups.h"

#include <QString>

#include <vector>

namespace lorvan {

class Connection;

/// Every movement code, inactive ones included, as a box holds it once it is chosen: its tag is the bare code. In the
/// Greek order of the descriptions. Throws SqlError.
[[nodiscard]] std::vector<CodeBox> listCodeBoxes(Connection& main);

/// How the screen counts: groups from 1, the boxes through all groups from 0.
inline constexpr int analysisGroupCount = 4;
inline constexpr int boxesOfGroup = 2;

[[nodiscard]] constexpr int firstBoxOf(int group)
{
    return (group - 1) * boxesOfGroup;
}

/// What stands above a box.
[[nodiscard]] inline QString captionOfBox(int box)
{
    return box % boxesOfGroup == 0 ? QStringLiteral("Κωδ. εσόδου ομάδας") : QStringLiteral("Κωδ. εξόδου ομάδας");
}

} // namespace lorvan
