#pragma once

#include <QString>

#include <array>

namespace lorvan {

class SettingsStore;

/// A box that holds a movement code.
struct CodeBox {
    QString text; ///< The code, a blank and its description; empty without a code.
    QString tag; ///< The bare code. Where it is none, the box counts for nothing.
};

/// Codes whose money lies elsewhere than in the cash desk, under a title of the user's.
struct AnalysisGroup {
    QString title;
    std::array<CodeBox, 2> boxes;
};

using AnalysisGroups = std::array<AnalysisGroup, 4>;

/// A box as it was stored: its tag is the text up to and with its first blank, empty for a text without one.
[[nodiscard]] CodeBox codeBoxOf(const QString& text);

/// The groups as they were stored, or their default titles and empty boxes. Throws SettingsError.
[[nodiscard]] AnalysisGroups storedAnalysisGroups(const SettingsStore& settings);

/// Keeps titles and texts of the boxes, all of them or, throwing SettingsError, none.
void storeAnalysisGroups(const SettingsStore& settings, const AnalysisGroups& groups);

} // namespace lorvan
