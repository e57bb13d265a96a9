#include "app/book_archive.h"

#include "app/book_files.h"
#include "app/copy_writing.h"
#include "app/steady_copy.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace lorvan {
namespace {

constexpr qsizetype blockSize = 1 << 20;
constexpr int ownerOnly = 0600;

using GoesOn = std::function<bool()>;

struct Free {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

void continueOrGiveUp(const GoesOn& goesOn)
{
    if (goesOn && !goesOn())
        throw GivenUp();
}

class Packer {
public:
    Packer(int descriptor, const QString& path)
        : m_archive(archive_write_new())
        , m_path(path)
    {
        check(archive_write_set_format_pax_restricted(m_archive.get()));
        check(archive_write_open_fd(m_archive.get(), descriptor));
    }

    void add(const QString& original, const GoesOn& goesOn)
    {
        QFile file(original);
        if (!file.open(QIODevice::ReadOnly))
            throw BookCopyFailed(original, file.errorString());
        writeHeader(QFileInfo(file));
        for (QByteArray block = file.read(blockSize); !block.isEmpty(); block = file.read(blockSize)) {
            continueOrGiveUp(goesOn);
            if (archive_write_data(m_archive.get(), block.constData(), static_cast<std::size_t>(block.size()))
                != block.size())
                fail();
        }
    }

    void close() { check(archive_write_close(m_archive.get())); }

private:
    struct Free {
        void operator()(archive* handle) const { archive_write_free(handle); }
    };

    void writeHeader(const QFileInfo& file)
    {
        const std::unique_ptr<archive_entry, lorvan::Free> entry(archive_entry_new());
        archive_entry_set_pathname(entry.get(), file.fileName().toUtf8().constData());
        archive_entry_set_size(entry.get(), file.size());
        archive_entry_set_filetype(entry.get(), AE_IFREG);
        archive_entry_set_perm(entry.get(), ownerOnly);
        archive_entry_set_mtime(entry.get(), file.lastModified().toSecsSinceEpoch(), 0);
        check(archive_write_header(m_archive.get(), entry.get()));
    }

    void check(int code) const
    {
        if (code != ARCHIVE_OK)
            fail();
    }

    [[noreturn]] void fail() const
    {
        throw BookCopyFailed(m_path, QString::fromUtf8(archive_error_string(m_archive.get())));
    }

    std::unique_ptr<archive, Free> m_archive;
    QString m_path;
};

class Unpacker {
public:
    explicit Unpacker(const QString& path)
        : m_archive(archive_read_new())
        , m_path(path)
    {
        if (!QFileInfo(path).isFile())
            throw BackupUnusable(path, QStringLiteral("δεν υπάρχει τέτοιο αρχείο."));
        archive_read_support_filter_none(m_archive.get());
        archive_read_support_format_tar(m_archive.get());
        if (archive_read_open_filename(m_archive.get(), QFile::encodeName(path).constData(), blockSize) != ARCHIVE_OK)
            fail();
    }

    /// The name of the next member; empty after the last.
    [[nodiscard]] QString next()
    {
        const int code = archive_read_next_header(m_archive.get(), &m_entry);
        if (code == ARCHIVE_EOF)
            return {};
        if (code != ARCHIVE_OK)
            fail();
        const char* const name = archive_entry_pathname(m_entry);
        const bool isPlainFile = archive_entry_filetype(m_entry) == AE_IFREG && !archive_entry_hardlink(m_entry);
        if (!name || !isPlainFile)
            throw BackupUnusable(m_path, QStringLiteral("περιέχει κάτι που δεν είναι αρχείο βιβλίου."));
        return QString::fromUtf8(name);
    }

    void unpackTo(const QString& target, const GoesOn& goesOn)
    {
        QFile file(target);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            throw BookCopyFailed(target, file.errorString());
        QByteArray block(blockSize, Qt::Uninitialized);
        for (;;) {
            continueOrGiveUp(goesOn);
            const auto length = archive_read_data(m_archive.get(), block.data(), static_cast<std::size_t>(blockSize));
            if (length < 0)
                fail();
            if (length == 0)
                break;
            writeAll(file, block.constData(), length);
        }
        if (file.size() != archive_entry_size(m_entry))
            throw BackupUnusable(m_path, QStringLiteral("είναι κομμένο."));
        closeConfirmed(file);
    }

private:
    struct Free {
        void operator()(archive* handle) const { archive_read_free(handle); }
    };

    [[noreturn]] void fail() const
    {
        throw BackupUnusable(m_path,
            QStringLiteral("δεν διαβάζεται ως αρχείο tar: %1")
                .arg(QString::fromUtf8(archive_error_string(m_archive.get()))));
    }

    std::unique_ptr<archive, Free> m_archive;
    archive_entry* m_entry = nullptr;
    QString m_path;
};

} // namespace

BackupUnusable::BackupUnusable(const QString& path, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(path, reason).toStdString())
{
}

void packBook(const BookFiles& copy, int descriptor, const QString& path, const std::function<bool()>& goesOn)
{
    Packer packer(descriptor, path);
    packer.add(copy.mainDatabase(), goesOn);
    packer.add(copy.auxiliaryDatabase(), goesOn);
    packer.close();
}

void unpackBook(const QString& path, const BookFiles& copy, const std::function<bool()>& goesOn)
{
    QStringList missing{copy.mainDatabase(), copy.auxiliaryDatabase()};
    Unpacker unpacker(path);
    for (QString name = unpacker.next(); !name.isEmpty(); name = unpacker.next()) {
        const QString target = copy.dataFolder() + u'/' + name;
        if (!missing.removeOne(target))
            throw BackupUnusable(path, QStringLiteral("περιέχει ένα ξένο αρχείο, το «%1».").arg(name));
        unpacker.unpackTo(target, goesOn);
    }
    if (!missing.isEmpty())
        throw BackupUnusable(path, QStringLiteral("λείπει το %1.").arg(QFileInfo(missing.first()).fileName()));
}

} // namespace lorvan
