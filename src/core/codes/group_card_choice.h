#pragma once

#include <QString>

#include <array>
#include <vector>

namespace lorvan {

class SettingsStore;

inline constexpr std::size_t cardColumns = 3; ///< Left, middle, right.

/// A group as it stands in the list that the columns are chosen from.
struct ChosenGroup {
    int position = 0; ///< in the list, counting from 0
    qint32 number = 0;
    QString name; ///< as the list shows it
};

/// For each column the chosen groups in the order of the list.
using CardChoice = std::array<std::vector<ChosenGroup>, cardColumns>;

/// What the card prints in one column.
struct CardColumn {
    QString title = QStringLiteral("Χωρίς επιλογή");
    std::vector<qint32> groups; ///< None leaves the column empty.
};

/// The three columns of a group card, left to right.
using CardColumns = std::array<CardColumn, cardColumns>;

/// Keeps the choice for the next time, all of it or, throwing SettingsError, nothing.
void storeCardChoice(const SettingsStore& settings, const CardChoice& choice);

/// The positions in the list that were chosen for a column; they may lie beyond the end of today's list. What is no
/// position is passed over. Throws SettingsError.
[[nodiscard]] std::vector<int> storedCardPositions(const SettingsStore& settings, std::size_t column);

/// The columns of a card for a choice that was just made, the same as once it is stored.
[[nodiscard]] CardColumns cardColumnsOf(const CardChoice& choice);

} // namespace lorvan
