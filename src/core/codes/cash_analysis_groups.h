#pragma once

#include <QString>

#include <array>

namespace lorvan {

class SettingsStore;

/// A box that holds a movement code.
struct CodeBox {
    QString text; ///< The code, a blank and its description; empty if there is no code.
    QString tag; ///< Only the code. If it is not a code, the box is ignored.
};

/// Codes whose money is not in the cash desk, under a title chosen by the user.
struct AnalysisGroup {
    QString title;
    std::array<CodeBox, 2> boxes;
};

using AnalysisGroups = std::array<AnalysisGroup, 4>;

/// A box as stored: its tag is the text up to and including its first blank, empty if the text has no blank.
[[nodiscard]] CodeBox codeBoxOf(const QString& text);

/// The stored groups, or their default titles and empty boxes. Throws SettingsError.
[[nodiscard]] AnalysisGroups storedAnalysisGroups(const SettingsStore& settings);

/// Stores the titles and the texts of the boxes, either all of them or, throwing SettingsError, none.
void storeAnalysisGroups(const SettingsStore& settings, const AnalysisGroups& groups);

} // namespace lorvan
