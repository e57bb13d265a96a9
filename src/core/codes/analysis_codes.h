#pragma once

#include "codes/cash_analysis_groups.h"

#include <QString>

#include <vector>

namespace lorvan {

class Connection;

/// Every movement code, inactive ones included, in the form that a box has once the code is chosen: the tag is only the
/// code. In the Greek order of the descriptions. Throws SqlError.
[[nodiscard]] std::vector<CodeBox> listCodeBoxes(Connection& main);

/// As counted on the screen: groups from 1, boxes from 0 through all groups.
inline constexpr int analysisGroupCount = 4;
inline constexpr int boxesOfGroup = 2;

[[nodiscard]] constexpr int firstBoxOf(int group)
{
    return (group - 1) * boxesOfGroup;
}

/// The caption above a box.
[[nodiscard]] inline QString captionOfBox(int box)
{
    return box % boxesOfGroup == 0 ? QStringLiteral("Κωδ. εσόδου ομάδας") : QStringLiteral("Κωδ. εξόδου ομάδας");
}

} // namespace lorvan
