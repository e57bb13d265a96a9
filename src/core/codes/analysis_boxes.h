#pragma once

#include <QString>

namespace lorvan {

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
