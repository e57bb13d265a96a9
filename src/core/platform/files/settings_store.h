#pragma once

#include <QString>

#include <optional>
#include <stdexcept>
#include <vector>

namespace lorvan {

/// The settings file cannot be read or written; it is then as it was. what() names the file and the trouble.
class SettingsError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One value of the store. Section and key are names without line breaks, "]" and "=", which begin with none of "[",
/// ";" and "#". The value is any text.
struct Setting {
    QString section;
    QString key;
    QString value;
};

/// The choices that a user makes, kept as texts in one file. Sections and keys are matched without regard to letter
/// case; of several entries with the same names the first one holds.
///
/// Nothing is kept in memory: every reading sees what other programs have written. Lines that are not understood, and
/// comments (";", "#"), stay as they are, byte for byte.
class SettingsStore {
public:
    /// The user's own file: Lorvan/Lorvan.ini in the configuration folder (XDG_CONFIG_HOME, else ~/.config).
    SettingsStore();
    explicit SettingsStore(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Nothing when there is no such entry, or no file. Throws SettingsError.
    [[nodiscard]] std::optional<QString> value(const QString& section, const QString& key) const;
    [[nodiscard]] QString value(const QString& section, const QString& key, const QString& fallback) const;

    /// Writes all of them at once, or throws SettingsError and writes none. Folder and file are made where they are
    /// missing; a file that holds the values already is left alone. Another program that writes at the same time is
    /// waited for, and neither loses what the other wrote under other keys.
    void write(const std::vector<Setting>& settings) const;

private:
    [[nodiscard]] QByteArray content() const;
    [[noreturn]] void fail(const QString& trouble) const;

    QString m_path;
};

} // namespace lorvan
