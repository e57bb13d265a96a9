#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace lorvan {

/// Where an import finds its files: a folder, or a ZIP file, whose files of those names (see import_files) are unpacked
/// into a folder that goes with the object.
class CsvSource {
public:
    static constexpr qint64 mostBytes = qint64(1) << 30; ///< Of all files in a ZIP together, unpacked.

    /// Throws Refused if a file cannot be read as ZIP, has more than `mostBytes`, or cannot be unpacked.
    explicit CsvSource(const QString& path, qint64 most = mostBytes);

    [[nodiscard]] const QString& folder() const { return m_folder; }

private:
    std::unique_ptr<QTemporaryDir> m_unpacked;
    QString m_folder;
};

} // namespace lorvan
