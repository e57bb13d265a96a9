#include "csv/csv_source.h"

#include "csv/csv_import.h"
#include "platform/files/system_reason.h"
#include "platform/stop_check.h"
#include "platform/work.h"

#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace lorvan {
namespace {

constexpr std::size_t readAtOnce = 1 << 16;
constexpr std::array<std::string_view, 5> wanted{import_files::groups, import_files::codes, import_files::movements,
    import_files::openingDifferences, import_files::counters};

struct Free {
    void operator()(archive* handle) const { archive_read_free(handle); }
};

class ZipReader {
public:
    ZipReader(const QString& path, qint64 most)
        : m_path(path)
        , m_left(most)
        , m_archive(archive_read_new())
    {
        archive_read_support_format_zip_seekable(m_archive.get());
        check(archive_read_open_filename(m_archive.get(), QFile::encodeName(path).constData(), readAtOnce));
    }

    void unpackTo(const QString& folder)
    {
        archive_entry* entry = nullptr;
        for (int code = nextEntry(&entry); code != ARCHIVE_EOF; code = nextEntry(&entry)) {
            const char* const name = archive_entry_pathname(entry);
            if (name && archive_entry_filetype(entry) == AE_IFREG
                && std::find(wanted.begin(), wanted.end(), name) != wanted.end())
                unpackFile(folder + u'/' + QLatin1String(name));
        }
    }

private:
    [[nodiscard]] int nextEntry(archive_entry** entry) const
    {
        const int code = archive_read_next_header(m_archive.get(), entry);
        if (code != ARCHIVE_EOF)
            check(code);
        return code;
    }

    void unpackFile(const QString& target)
    {
        QFile file(target);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            refuse(systemReason(file.errorString()));
        std::array<char, readAtOnce> piece{};
        for (;;) {
            continueOrGiveUp();
            const auto length = archive_read_data(m_archive.get(), piece.data(), piece.size());
            if (length == 0)
                return;
            check(length < 0 ? ARCHIVE_FATAL : ARCHIVE_OK);
            m_left -= length;
            if (m_left < 0)
                refuse(QStringLiteral("Τα αρχεία του είναι υπερβολικά μεγάλα."));
            if (file.write(piece.data(), length) != length)
                refuse(systemReason(file.errorString()));
        }
    }

    void check(int code) const
    {
        if (code != ARCHIVE_OK)
            refuse(QStringLiteral("Δεν είναι αρχείο ZIP, έχει βλάβη ή ζητά κωδικό."));
    }
    [[noreturn]] void refuse(const QString& reason) const
    {
        throw Refused(QStringLiteral("Το %1 δεν διαβάζεται ως φάκελος ή αρχείο ZIP. %2").arg(m_path, reason));
    }

    QString m_path;
    qint64 m_left;
    std::unique_ptr<archive, Free> m_archive;
};

} // namespace

CsvSource::CsvSource(const QString& path, qint64 most)
    : m_folder(path)
{
    if (!QFileInfo(path).isFile())
        return;
    m_unpacked = std::make_unique<QTemporaryDir>();
    if (!m_unpacked->isValid())
        throw Refused(systemReason(m_unpacked->errorString()));
    m_folder = m_unpacked->path();
    ZipReader(path, most).unpackTo(m_folder);
}

} // namespace lorvan
