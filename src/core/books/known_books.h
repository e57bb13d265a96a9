#pragma once

#include "book/path_file.h"
#include "platform/files/settings_store.h"

#include <QDateTime>

#include <vector>

namespace lorvan {

/// A book on this computer: what the path file says when the program opens it, and when that was last chosen here.
struct KnownBook {
    DataFolderSettings settings;
    QDateTime opened = {}; ///< Invalid if it was never chosen here.
};

/// The books that this user knows, in the user's settings: the one opened last comes first.
class KnownBooks {
public:
    static constexpr qsizetype most = 100; ///< Beyond that the one opened longest ago is forgotten.

    explicit KnownBooks(SettingsStore store = SettingsStore());

    /// Entries that cannot be read are left out. Throws SettingsError.
    [[nodiscard]] std::vector<KnownBook> list() const;

    /// Puts a book first, in place of the entry with the same folder. Throws SettingsError.
    void remember(const KnownBook& book) const;
    /// Puts it last, if its folder is not known yet; otherwise takes over colour and heading alone. Throws
    /// SettingsError.
    void takeOver(const DataFolderSettings& settings) const;
    /// Takes it off the list; its files stay. Throws SettingsError.
    void forget(const QString& folder) const;

private:
    void write(const std::vector<KnownBook>& books) const;

    SettingsStore m_store;
};

/// Whether two paths lead to the same folder, also if it is not there at the moment.
[[nodiscard]] bool isSameBook(const QString& one, const QString& other);

} // namespace lorvan
