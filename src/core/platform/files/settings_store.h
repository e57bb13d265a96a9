#pragma once

#include <QString>

#include <optional>
#include <stdexcept>
#include <vector>

namespace lorvan {

/// The settings file cannot be read or written; it is unchanged. what() names the file and the problem.
class SettingsError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One value of the store. Section and key are names without line breaks, "]" and "=", and do not begin with "[", ";"
/// or "#". The value can be any text.
struct Setting {
    QString section;
    QString key;
    QString value;
};

/// The user's settings, stored as texts in one file. Letter case is ignored in the names of sections and keys; if
/// several entries have the same names, the first one counts.
///
/// Nothing is cached: every read sees what other programs have written. Lines that are not understood, and comments
/// (";", "#"), are kept byte for byte.
class SettingsStore {
public:
    /// The user's own file: Lorvan/Lorvan.ini in the configuration folder (XDG_CONFIG_HOME, else ~/.config).
    SettingsStore();
    explicit SettingsStore(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }

    /// No value if there is no such entry, or no file. Throws SettingsError.
    [[nodiscard]] std::optional<QString> value(const QString& section, const QString& key) const;
    [[nodiscard]] QString value(const QString& section, const QString& key, const QString& fallback) const;

    /// Writes all of them at once, or throws SettingsError and writes none. The folder and the file are made if they
    /// are missing; a file that already holds the values is not touched. Waits for another program that is writing at
    /// the same time; neither loses what the other wrote under other keys.
    void write(const std::vector<Setting>& settings) const;

private:
    [[nodiscard]] QByteArray content() const;
    [[noreturn]] void fail(const QString& trouble) const;

    QString m_path;
};

} // namespace lorvan
