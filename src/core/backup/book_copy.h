#pragma once

#include "backup/book_proof.h"
#include "platform/files/folder.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

class Connection;

/// One file of a copy. Until it is complete its name ends in ".part". The destructor removes it, unless keep() was
/// called.
class CopiedFile {
public:
    /// The copy is made in the original's folder as name-2026-11-23-101530.ending.
    CopiedFile(const Folder& folder, const QString& original, const QDateTime& at);
    ~CopiedFile();
    CopiedFile(const CopiedFile&) = delete;
    CopiedFile& operator=(const CopiedFile&) = delete;

    [[nodiscard]] QString path() const { return m_folder.pathOf(m_name); } ///< After complete().

    /// Copies the database `schema` with the permissions of the original, waits until the disk has confirmed the copy,
    /// and reads all of it back.
    void write(Connection& book, const QString& schema, KeyRing& keys);
    void complete();
    void keep() { m_isOurs = false; }

private:
    const Folder& m_folder;
    QString m_original;
    QString m_name;
    QString m_current;
    bool m_isOurs = false; ///< To be removed by the destructor.
};

/// A copy of both databases beside the originals, named by date and time: lorvan-2026-11-23-101530.mdb and
/// mapcodes-2026-11-23-101530.mdb. The destructor removes it, unless keep() was called.
class BookCopy {
public:
    /// Copies the files and proves that the copies can be read. `book` has the main database open and the auxiliary one
    /// attached as `auxiliary`, in a transaction that keeps other writers out and has not written anything yet. The
    /// names have the time `now`, or the first second after it for which both names are free.
    /// Throws BookCopyFailed if the copy cannot be written, and SqlError if an original cannot be read; no part of a
    /// copy is left behind then.
    BookCopy(Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now);

    [[nodiscard]] QString mainDatabase() const { return m_main.path(); }
    [[nodiscard]] QString auxiliaryDatabase() const { return m_auxiliary.path(); }

    void keep();

private:
    BookCopy(Folder folder, const QDateTime& now);

    Folder m_folder;
    QDateTime m_at;
    CopiedFile m_main;
    CopiedFile m_auxiliary;
};

} // namespace lorvan
