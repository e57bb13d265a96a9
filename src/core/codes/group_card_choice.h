#pragma once

#include <QString>

#include <array>
#include <vector>

namespace lorvan {

class SettingsStore;

inline constexpr std::size_t cardColumns = 3; ///< Left, middle, right.

/// A group in the list from which the columns are chosen.
struct ChosenGroup {
    int position = 0; ///< in the list, counting from 0
    qint32 number = 0;
    QString name; ///< as the list shows it
};

/// For each column, the chosen groups in the order of the list.
using CardChoice = std::array<std::vector<ChosenGroup>, cardColumns>;

/// What the card prints in one column.
struct CardColumn {
    QString title = QStringLiteral("Χωρίς επιλογή");
    std::vector<qint32> groups; ///< If there are none, the column is empty.
};

/// The three columns of a group card, left to right.
using CardColumns = std::array<CardColumn, cardColumns>;

/// Stores the choice for the next time, either all of it or, throwing SettingsError, nothing.
void storeCardChoice(const SettingsStore& settings, const CardChoice& choice);

/// The positions in the list that were chosen for a column; they may be beyond the end of today's list. Anything that
/// is not a position is ignored. Throws SettingsError.
[[nodiscard]] std::vector<int> storedCardPositions(const SettingsStore& settings, std::size_t column);

/// The columns of a card for a choice just made; the same as after storing it.
[[nodiscard]] CardColumns cardColumnsOf(const CardChoice& choice);

} // namespace lorvan
