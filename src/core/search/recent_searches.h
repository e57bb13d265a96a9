#pragma once

#include "platform/files/settings_store.h"

#include <QStringList>

namespace lorvan {

/// What was searched for last, in the user's settings.
class RecentSearches {
public:
    static constexpr qsizetype most = 10;

    explicit RecentSearches(SettingsStore store = SettingsStore());

    /// The newest first. Throws SettingsError.
    [[nodiscard]] QStringList list() const;

    /// Puts a text first, whether it was there before or not; a blank or a very long one is not kept. Throws
    /// SettingsError.
    void remember(const QString& typed) const;

private:
    const SettingsStore m_store;
};

} // namespace lorvan
