#include "backup/book_archive.h"

#include "backup/copy_writing.h"
#include "platform/files/system_reason.h"
#include "platform/printable_text.h"
#include "platform/stop_check.h"

#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>
#include <unistd.h>

#include <exception>
#include <memory>

namespace lorvan {
namespace {

constexpr qint64 blockSize = 1 << 20;
constexpr int ownerOnly = 0600;

QStringList members()
{
    return {QStringLiteral("lorvan.mdb"), QStringLiteral("mapcodes.mdb")};
}

/// The file that the library reads or writes through callbacks. An exception must not pass through the library, so it
/// is stored here until the library has returned.
struct ArchiveFile {
    explicit ArchiveFile(File& archive)
        : file(archive)
    {
    }

    static la_ssize_t read(archive* handle, void* self, const void** bytes)
    {
        auto& own = *static_cast<ArchiveFile*>(self);
        try {
            own.block = own.file.read(blockSize);
            *bytes = own.block.constData();
            return own.block.size();
        } catch (const FileError& error) {
            archive_set_error(handle, error.number(), "%s", error.reason().toUtf8().constData());
            own.failure = std::current_exception();
            return -1;
        }
    }

    static la_ssize_t write(archive* handle, void* self, const void* bytes, std::size_t size)
    {
        auto& own = *static_cast<ArchiveFile*>(self);
        try {
            own.file.write(static_cast<const char*>(bytes), static_cast<qint64>(size));
            return static_cast<la_ssize_t>(size);
        } catch (const FileError& error) {
            archive_set_error(handle, error.number(), "%s", error.reason().toUtf8().constData());
            own.failure = std::current_exception();
            return -1;
        }
    }

    File& file;
    QByteArray block = {};
    std::exception_ptr failure = {};
};

class Packer {
public:
    explicit Packer(File& archive)
        : m_file(archive)
        , m_archive(archive_write_new())
    {
        check(archive_write_set_format_pax_restricted(m_archive.get()));
        check(archive_write_set_bytes_in_last_block(m_archive.get(), 1)); // no padding after the end of the archive
        check(archive_write_open(m_archive.get(), &m_file, nullptr, ArchiveFile::write, nullptr));
    }

    void add(const Folder& copy, const QString& name)
    {
        File file = copy.open(name, Folder::Opening::Read);
        writeHeader(name, file.status());
        for (QByteArray block = file.read(blockSize); !block.isEmpty(); block = file.read(blockSize)) {
            continueOrGiveUp();
            if (archive_write_data(m_archive.get(), block.constData(), static_cast<std::size_t>(block.size()))
                != block.size())
                fail();
        }
    }

    void close() { check(archive_write_close(m_archive.get())); }

private:
    struct Free {
        void operator()(archive* handle) const { archive_write_free(handle); }
        void operator()(archive_entry* entry) const { archive_entry_free(entry); }
    };

    void writeHeader(const QString& name, const struct stat& file)
    {
        const std::unique_ptr<archive_entry, Free> entry(archive_entry_new());
        archive_entry_set_pathname(entry.get(), name.toUtf8().constData());
        archive_entry_set_size(entry.get(), file.st_size);
        archive_entry_set_filetype(entry.get(), AE_IFREG);
        archive_entry_set_perm(entry.get(), ownerOnly);
        archive_entry_set_mtime(entry.get(), file.st_mtime, 0);
        check(archive_write_header(m_archive.get(), entry.get()));
    }

    void check(int code) const
    {
        if (code != ARCHIVE_OK)
            fail();
    }

    [[noreturn]] void fail() const
    {
        if (m_file.failure)
            std::rethrow_exception(m_file.failure);
        throw BookCopyFailed(
            m_file.file.path(), systemReason(QString::fromUtf8(archive_error_string(m_archive.get()))));
    }

    ArchiveFile m_file; ///< Used until the archive is freed.
    std::unique_ptr<archive, Free> m_archive;
};

class Unpacker {
public:
    explicit Unpacker(File& archive)
        : m_file(archive)
        , m_archive(archive_read_new())
    {
        archive_read_support_filter_none(m_archive.get());
        archive_read_support_format_tar(m_archive.get());
        if (archive_read_open(m_archive.get(), &m_file, nullptr, ArchiveFile::read, nullptr) != ARCHIVE_OK)
            fail();
    }

    /// Goes to the next member and returns its name; an empty text after the last.
    [[nodiscard]] QString next()
    {
        const int code = archive_read_next_header(m_archive.get(), &m_entry);
        if (code == ARCHIVE_EOF)
            return {};
        if (code != ARCHIVE_OK)
            fail();
        const char* const name = archive_entry_pathname(m_entry);
        const bool isPlainFile = archive_entry_filetype(m_entry) == AE_IFREG && !archive_entry_hardlink(m_entry);
        if (!name || *name == '\0' || !isPlainFile)
            refuse(QStringLiteral("περιέχει κάτι που δεν είναι αρχείο βιβλίου."));
        if (archive_entry_sparse_count(m_entry) > 0)
            refuseHole();
        return QString::fromUtf8(name);
    }

    void unpackTo(const Folder& folder, const QString& name)
    {
        refuseWithoutRoom(folder, archive_entry_size(m_entry));
        File file = folder.open(name, Folder::Opening::MakeNew, FileAccess::Owner);
        const void* bytes = nullptr;
        std::size_t size = 0;
        la_int64_t place = 0;
        qint64 done = 0;
        for (;;) {
            continueOrGiveUp();
            const int code = archive_read_data_block(m_archive.get(), &bytes, &size, &place);
            if (code != ARCHIVE_OK && code != ARCHIVE_EOF)
                fail();
            if (code == ARCHIVE_EOF)
                break;
            if (place != done)
                refuseHole();
            file.write(static_cast<const char*>(bytes), static_cast<qint64>(size));
            done += static_cast<qint64>(size);
        }
        if (done != archive_entry_size(m_entry))
            refuse(QStringLiteral("είναι κομμένο."));
        file.sync();
    }

    [[noreturn]] void refuse(const QString& reason) const { throw BackupUnusable(m_file.file.path(), reason); }
    [[noreturn]] void refuseHole() const
    {
        refuse(QStringLiteral("περιέχει αρχείο με κενά (sparse), που δεν γράφεται σε αντίγραφα."));
    }

private:
    struct Free {
        void operator()(archive* handle) const { archive_read_free(handle); }
    };

    [[noreturn]] void fail() const
    {
        refuse(QStringLiteral("δεν διαβάζεται ως αρχείο tar, ίσως γιατί αντιγράφηκε μισό (%1).")
                   .arg(systemReason(QString::fromUtf8(archive_error_string(m_archive.get())))));
    }

    ArchiveFile m_file; ///< Used until the archive is freed.
    std::unique_ptr<archive, Free> m_archive;
    archive_entry* m_entry = nullptr;
};

File openArchive(const QString& path)
{
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    if (!file.isFile())
        throw BackupUnusable(path, QStringLiteral("δεν υπάρχει τέτοιο αρχείο."));
    try {
        return Folder(file.path()).open(file.fileName(), Folder::Opening::Read);
    } catch (const FileError& error) {
        throw BackupUnusable(path, error.reason());
    }
}

/// True if parts of the file read as zeros but take no room on the disk: unpacked, such a file could be far larger than
/// it is itself. On file systems without holes this is false.
bool hasHoles(const File& archive)
{
    const off_t hole = ::lseek(archive.descriptor(), 0, SEEK_HOLE);
    return hole >= 0 && hole < archive.size();
}

} // namespace

BackupUnusable::BackupUnusable(const QString& path, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(path, reason).toStdString())
{
}

QString BackupUnusable::plainText() const
{
    return QStringLiteral("Το αρχείο δεν είναι ακέραιο αντίγραφο ασφαλείας ενός βιβλίου.");
}

void packBook(const Folder& copy, File& archive)
{
    asCopy([&] {
        Packer packer(archive);
        for (const QString& name : members())
            packer.add(copy, name);
        packer.close();
    });
}

void unpackBook(File& archive, const Folder& copy)
{
    asCopy([&] {
        QStringList missing = members();
        Unpacker unpacker(archive);
        if (hasHoles(archive))
            unpacker.refuseHole();
        refuseWithoutRoom(copy, archive.size()); // without holes the members are not larger than the archive
        for (QString name = unpacker.next(); !name.isEmpty(); name = unpacker.next()) {
            if (!missing.removeOne(name))
                unpacker.refuse(QStringLiteral("περιέχει ένα ξένο αρχείο, το «%1».").arg(printableName(name)));
            unpacker.unpackTo(copy, name);
        }
        if (!missing.isEmpty())
            unpacker.refuse(QStringLiteral("λείπει το %1.").arg(missing.first()));
    });
}

void unpackBook(const QString& path, const Folder& copy)
{
    File archive = openArchive(path);
    unpackBook(archive, copy);
}

} // namespace lorvan
