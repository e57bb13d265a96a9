#pragma once

#include <QByteArray>
#include <QDateTime>

#include <memory>

struct archive;

namespace lorvan {

/// Writes a ZIP file into memory. All operations throw Refused.
class ZipWriter {
public:
    /// `time` is that of all files in it.
    explicit ZipWriter(const QDateTime& time);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// The name is in ASCII.
    void add(const QByteArray& name, const QByteArray& content);
    /// The whole file. To be called once, after the last add().
    [[nodiscard]] QByteArray finish();

private:
    struct Free {
        void operator()(archive* handle) const;
    };
    void check(bool isDone) const;

    const QDateTime m_time;
    QByteArray m_bytes; ///< Used until the archive is freed.
    std::unique_ptr<archive, Free> m_archive;
};

} // namespace lorvan
