#include "monthly/zip_writer.h"

#include "platform/work.h"

#include <archive.h>
#include <archive_entry.h>

#include <utility>

namespace lorvan {
namespace {

constexpr int readableByAll = 0644;

la_ssize_t append(archive* /*handle*/, void* target, const void* bytes, std::size_t size)
{
    static_cast<QByteArray*>(target)->append(static_cast<const char*>(bytes), static_cast<qsizetype>(size));
    return static_cast<la_ssize_t>(size);
}

struct FreeEntry {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

} // namespace

void ZipWriter::Free::operator()(archive* handle) const
{
    archive_write_free(handle);
}

ZipWriter::ZipWriter(const QDateTime& time)
    : m_time(time)
    , m_archive(archive_write_new())
{
    check(archive_write_set_format_zip(m_archive.get()) == ARCHIVE_OK);
    check(archive_write_set_bytes_in_last_block(m_archive.get(), 1) == ARCHIVE_OK);
    check(archive_write_open(m_archive.get(), &m_bytes, nullptr, append, nullptr) == ARCHIVE_OK);
}

ZipWriter::~ZipWriter() = default;

void ZipWriter::add(const QByteArray& name, const QByteArray& content)
{
    const std::unique_ptr<archive_entry, FreeEntry> entry(archive_entry_new());
    archive_entry_set_pathname(entry.get(), name.constData());
    archive_entry_set_size(entry.get(), content.size());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), readableByAll);
    archive_entry_set_mtime(entry.get(), m_time.toSecsSinceEpoch(), 0);
    check(archive_write_header(m_archive.get(), entry.get()) == ARCHIVE_OK);
    check(archive_write_data(m_archive.get(), content.constData(), static_cast<std::size_t>(content.size()))
        == content.size());
}

QByteArray ZipWriter::finish()
{
    check(archive_write_close(m_archive.get()) == ARCHIVE_OK);
    m_archive.reset();
    return std::exchange(m_bytes, {});
}

void ZipWriter::check(bool isDone) const
{
    if (!isDone)
        throw Refused(QStringLiteral("Το αρχείο ZIP δεν γράφεται. %1")
                          .arg(QString::fromUtf8(archive_error_string(m_archive.get()))));
}

} // namespace lorvan
